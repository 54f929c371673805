// Runs one condition that must stop the program, so a test can watch it from
// outside: the process must abort and name what went wrong.
//
//   vellumo_gui_fatal_probe dimension <value>        a dimension label for the value
//   vellumo_gui_fatal_probe quality <value>          the quality label for the value

#include <QApplication>
#include <cstdio>

#include "ui/controls/QualityText.h"
#include "ui/preview/DimensionText.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: %s dimension|quality <argument>\n", argv[0]);
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

    std::fprintf(stderr, "unknown mode %s\n", qPrintable(mode));
    return 2;
}
