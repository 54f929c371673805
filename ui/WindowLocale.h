#pragma once

#include <QLocale>
#include <QString>

namespace vellumo {

// The locale the window writes numbers in (counts, sizes, the job's line):
// the C locale, without group separators, as the English texts have always
// been written, until the application chooses a translation and sets that
// language's. Kept apart from QLocale's default, which follows the system's
// locale and would write "4,000" in English on many systems.
const QLocale& WindowLocale();
void SetWindowLocale(const QLocale& locale);

// A whole number written the window's way ("4000"; "4.000" in German).
QString WindowNumber(qlonglong number);

}  // namespace vellumo
