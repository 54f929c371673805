// Every message box is built by one helper: text, title, style, buttons in
// reading order with the first as default, answers 1000, 1001, ... A real
// modal box is answered from inside its own loop, as a person would.

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <functional>

#include "tests/gui/support/LoadedWindow.h"
#include "ui/dialogs/MessageBox.h"
#include "ui/dialogs/OverwriteBox.h"

using vellumo::BuildMessageBox;
using vellumo::MessageBoxRequest;
using vellumo::MessageBoxStyle;
using vellumo::RunMessageBox;
using vellumo::test::LoadedWindow;

namespace {

// The box's push buttons from left to right as shown.
QList<QPushButton*> ButtonsLeftToRight(QMessageBox& box) {
    QList<QPushButton*> buttons;
    for (QAbstractButton* button : box.buttons()) {
        buttons << qobject_cast<QPushButton*>(button);
    }
    std::sort(buttons.begin(), buttons.end(), [](QPushButton* a, QPushButton* b) {
        return a->mapToGlobal(QPoint(0, 0)).x() < b->mapToGlobal(QPoint(0, 0)).x();
    });
    return buttons;
}

QStringList Titles(const QList<QPushButton*>& buttons) {
    QStringList titles;
    for (const QPushButton* button : buttons) {
        titles << button->text();
    }
    return titles;
}

struct SeenBox {
    bool seen = false;
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttonsLeftToRight;
    QString defaultButton;
};

// Once the modal box is up: notes what it shows, then lets `answer` press
// something. Always ends the box, even when nothing matched.
void AnswerTheModalBox(SeenBox& seen, std::function<void(QMessageBox&)> answer) {
    QTimer::singleShot(0, [&seen, answer] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return;
        }
        seen.seen = true;
        seen.title = box->windowTitle();
        seen.text = box->text();
        seen.icon = box->icon();
        const auto buttons = ButtonsLeftToRight(*box);
        seen.buttonsLeftToRight = Titles(buttons);
        seen.defaultButton = box->defaultButton() ? box->defaultButton()->text() : QString();
        answer(*box);
        if (box->isVisible()) {
            box->done(0);
        }
    });
}

void Press(QMessageBox& box, const QString& title) {
    for (QAbstractButton* button : box.buttons()) {
        if (button->text() == title) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
}

}  // namespace

class MessageBoxTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aBuiltBoxHasTheSentenceTitleStyleAndButtons() {
        const auto box =
            BuildMessageBox({"The file /out/a.jpg already exists. Do you want to overwrite it?",
                             MessageBoxStyle::Warning,
                             {"Yes", "Yes to All", "No", "No to All"}},
                            nullptr);
        QCOMPARE(box->windowTitle(), QStringLiteral("Vellumo"));
        QCOMPARE(
            box->text(),
            QStringLiteral("The file /out/a.jpg already exists. Do you want to overwrite it?"));
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(box->buttons().size(), 4);
        // One role for all: every desktop's button layout keeps such buttons
        // in the order they were added (roles of their own would be sorted).
        for (QAbstractButton* button : box->buttons()) {
            QCOMPARE(box->buttonRole(button), QMessageBox::ActionRole);
        }
        QCOMPARE(box->defaultButton()->text(), QStringLiteral("Yes"));
        QCOMPARE(box->escapeButton()->text(), QStringLiteral("No to All"));
    }

    void theSuccessReportIsInformational() {
        const auto box = BuildMessageBox(
            {"Images cropped successfully.", MessageBoxStyle::Informational, {"OK"}}, nullptr);
        QCOMPARE(box->icon(), QMessageBox::Information);
        const auto notice =
            BuildMessageBox(vellumo::NoticeRequest("Please select an output folder."), nullptr);
        QCOMPARE(notice->icon(), QMessageBox::Warning);
        QCOMPARE(notice->buttons().size(), 1);
        QCOMPARE(notice->buttons().front()->text(), QStringLiteral("OK"));
    }

    void aRealModalBoxAnswersWithThePressedButtonsCode_data() {
        QTest::addColumn<QString>("pressed");
        QTest::addColumn<int>("answer");  // the button's place
        QTest::newRow("first") << "Yes" << 0;
        QTest::newRow("second") << "Yes to All" << 1;
        QTest::newRow("third") << "No" << 2;
        QTest::newRow("fourth") << "No to All" << 3;
    }

    void aRealModalBoxAnswersWithThePressedButtonsCode() {
        QFETCH(QString, pressed);
        QFETCH(int, answer);
        const MessageBoxRequest request{
            "The file /out/b.png already exists. Do you want to "
            "overwrite it?",
            MessageBoxStyle::Warning,
            {"Yes", "Yes to All", "No", "No to All"}};
        SeenBox seen;
        AnswerTheModalBox(seen, [&](QMessageBox& box) { Press(box, pressed); });

        QCOMPARE(RunMessageBox(request, nullptr).button, answer);

        QVERIFY(seen.seen);
        QCOMPARE(seen.title, QStringLiteral("Vellumo"));
        QCOMPARE(seen.text, request.text);
        QCOMPARE(seen.icon, QMessageBox::Warning);
        QCOMPARE(seen.buttonsLeftToRight, request.buttons);
        QCOMPARE(seen.defaultButton, QStringLiteral("Yes"));
    }

    void returnPressesTheFirstButtonAndEscapeTheLast() {
        const MessageBoxRequest request{
            "Are you sure you want to remove all the images from "
            "the list?",
            MessageBoxStyle::Warning,
            {"Yes", "No"}};
        SeenBox seen;
        AnswerTheModalBox(seen, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QCOMPARE(RunMessageBox(request, nullptr).button, 0);
        QVERIFY(seen.seen);

        AnswerTheModalBox(seen, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(RunMessageBox(request, nullptr).button, 1);

        // However it is closed, the box answers with its last button.
        AnswerTheModalBox(seen, [](QMessageBox& box) { box.close(); });
        QCOMPARE(RunMessageBox(request, nullptr).button, 1);
    }

    void theOverwriteBoxsAnswersAndAnyOtherCodeCountsAsNoToAll() {
        using vellumo::OverwriteAnswer;
        using vellumo::OverwriteAnswerOfBox;
        const MessageBoxRequest box = vellumo::OverwriteBoxRequest("/a");
        QCOMPARE(box.text,
                 QStringLiteral("The file /a already exists. Do you want to overwrite it?"));
        QCOMPARE(box.buttons, QStringList({"Yes", "Yes to All", "No", "No to All"}));
        QCOMPARE(OverwriteAnswerOfBox(vellumo::kAnswerYes), OverwriteAnswer::Yes);
        QCOMPARE(OverwriteAnswerOfBox(vellumo::kAnswerYesToAll), OverwriteAnswer::YesToAll);
        QCOMPARE(OverwriteAnswerOfBox(vellumo::kAnswerNo), OverwriteAnswer::No);
        QCOMPARE(OverwriteAnswerOfBox(vellumo::kAnswerNoToAll), OverwriteAnswer::NoToAll);
        QCOMPARE(OverwriteAnswerOfBox(vellumo::kNoButtonPressed), OverwriteAnswer::NoToAll);
        QCOMPARE(OverwriteAnswerOfBox(vellumo::BoxAnswer{4}), OverwriteAnswer::NoToAll);
    }

    void removeAllAsksThroughARealBox() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg", "/pics/b.png"});
        // From here on the real boxes are shown.
        loaded.controller().services() =
            vellumo::WindowServices::Desktop([&loaded]() -> QWidget* { return &loaded.window(); });
        loaded.Show();

        SeenBox seen;
        AnswerTheModalBox(seen, [](QMessageBox& box) { Press(box, "No"); });
        loaded.controller().OnRemoveAll();
        QVERIFY(seen.seen);
        QCOMPARE(seen.text,
                 QStringLiteral("Are you sure you want to remove all the images from the list?"));
        QCOMPARE(seen.buttonsLeftToRight, QStringList({"Yes", "No"}));
        QCOMPARE(loaded.imageList().paths().size(), 2);

        AnswerTheModalBox(seen, [](QMessageBox& box) { Press(box, "Yes"); });
        loaded.controller().OnRemoveAll();
        QVERIFY(loaded.imageList().paths().isEmpty());
    }
};

QTEST_MAIN(MessageBoxTest)
#include "MessageBoxTest.moc"
