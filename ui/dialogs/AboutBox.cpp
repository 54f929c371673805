#include "ui/dialogs/AboutBox.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <QtConcurrent>

#include "ui/job/WorkerSettings.h"
#include "worker/WorkerProcess.h"

namespace vellumo {

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About Vellumo"));
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(
        tr("<b>Vellumo %1</b><br>Batch image cropping").arg(QApplication::applicationVersion()),
        this);
    title->setObjectName(QStringLiteral("aboutTitle"));
    headline_ = new QLabel(tr("Asking the image worker about its sandbox…"), this);
    headline_->setObjectName(QStringLiteral("sandboxHeadline"));
    headline_->setWordWrap(true);
    layers_ = new QPlainTextEdit(this);
    layers_->setObjectName(QStringLiteral("sandboxLayers"));
    layers_->setReadOnly(true);
    layers_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layers_->setAccessibleName(tr("Sandbox layers"));
    // Wide and tall enough for the layers' table (SandboxTable) unwrapped.
    const QFontMetrics metrics(layers_->font());
    layers_->setLineWrapMode(QPlainTextEdit::NoWrap);
    layers_->setMinimumSize(metrics.horizontalAdvance(QLatin1Char('x')) * 96,
                            metrics.lineSpacing() * 9);
    auto* require = new QCheckBox(
        tr("Refuse to decode images while a layer is missing (from the next start)"), this);
    require->setObjectName(QStringLiteral("requireSandbox"));
    require->setChecked(workersettings::RequireCompleteSandbox());
    connect(require, &QCheckBox::toggled, this, &workersettings::SetRequireCompleteSandbox);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(title);
    layout->addWidget(headline_);
    layout->addWidget(layers_);
    layout->addWidget(require);
    layout->addWidget(buttons);

    connect(&watcher_, &QFutureWatcher<Answer>::finished, this,
            [this] { ShowSandbox(watcher_.result()); });
    // Starting a worker and reading its greeting takes a fork and the
    // decoders' start: not on the GUI thread.
    watcher_.setFuture(QtConcurrent::run([] {
        WorkerProcess worker;
        std::string failure;
        Answer answer;
        answer.status = worker.StartForStatus(failure);
        answer.failure = QString::fromStdString(failure);
        return answer;
    }));
}

QString AboutBox::SandboxHeadline(const SandboxStatus& status, const QString& failure) {
    if (status.empty()) {
        return tr("The image worker did not start: %1").arg(failure);
    }
    if (SandboxComplete(status)) {
        return tr("Images are decoded in a sandboxed worker: every layer is active.");
    }
    return tr("The image worker's sandbox is incomplete: %1 missing.")
        .arg(QString::fromStdString(MissingSandboxLayers(status)));
}

void AboutBox::ShowSandbox(const Answer& answer) {
    headline_->setText(SandboxHeadline(answer.status, answer.failure));
    layers_->setPlainText(SandboxTable(answer.status));
}

QString AboutBox::SandboxTable(const SandboxStatus& status) {
    return QString::fromStdString(DescribeSandbox(
        status, SandboxWords{tr("active").toStdString(), tr("MISSING").toStdString(),
                             tr("not reported by the worker").toStdString()}));
}

}  // namespace vellumo
