// Runs one condition that must stop the program, so a test can watch it from
// outside: the process must abort and name what went wrong.
//
//   vellumo_gui_fatal_probe missing <objectName>     a control removed from the window
//   vellumo_gui_fatal_probe wrong-kind <objectName>  a QLabel in a control's place
//   vellumo_gui_fatal_probe dimension <value>        a dimension label for the value
//   vellumo_gui_fatal_probe quality <value>          the quality label for the value

#include <QApplication>
#include <QLabel>
#include <cstdio>

#include "ui/MainWindow.h"
#include "ui/ViewController.h"
#include "ui/controls/QualityText.h"
#include "ui/preview/DimensionText.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: %s missing|wrong-kind|dimension|quality <argument>\n",
                     argv[0]);
        return 2;
    }
    const QString mode = arguments[1];
    const QString argument = arguments[2];

    if (mode == "dimension") {
        const QString text = vellumo::DimensionText(vellumo::kWidthCaption, argument.toDouble());
        std::printf("%s\n", qPrintable(text));
        return 0;
    }

    if (mode == "quality") {
        const QString text = vellumo::QualityText(argument.toFloat());
        std::printf("%s\n", qPrintable(text));
        return 0;
    }

    vellumo::MainWindow window;
    QObject* control = window.findChild<QObject*>(argument);
    if (control == nullptr) {
        std::fprintf(stderr, "the window has no %s to take away\n", qPrintable(argument));
        return 2;
    }
    delete control;
    if (mode == "wrong-kind") {
        auto* impostor = new QLabel(window.centralWidget());
        impostor->setObjectName(argument);
    }
    vellumo::ViewController controller;
    controller.LoadView(window);
    std::printf("loaded\n");
    return 0;
}
