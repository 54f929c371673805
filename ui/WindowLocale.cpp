#include "ui/WindowLocale.h"

namespace vellumo {

namespace {

// Set once at start, before the window is made, and read on the GUI thread.
QLocale& Chosen() {
    static QLocale chosen = QLocale::c();
    return chosen;
}

}  // namespace

const QLocale& WindowLocale() {
    return Chosen();
}

void SetWindowLocale(const QLocale& locale) {
    Chosen() = locale;
}

QString WindowNumber(qlonglong number) {
    return Chosen().toString(number);
}

}  // namespace vellumo
