#include "ui/controls/TextFieldNumber.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace vellumo {

namespace {

bool IsDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// The length of the decimal number at `start`, or 0 when there is none.
qsizetype NumberLength(QStringView text, qsizetype start) {
    qsizetype i = start;
    const qsizetype end = text.size();
    if (i < end && (text[i] == QLatin1Char('+') || text[i] == QLatin1Char('-'))) {
        ++i;
    }
    qsizetype digits = 0;
    while (i < end && IsDigit(text[i])) {
        ++i;
        ++digits;
    }
    if (i < end && text[i] == QLatin1Char('.')) {
        ++i;
        while (i < end && IsDigit(text[i])) {
            ++i;
            ++digits;
        }
    }
    if (digits == 0) {
        return 0;
    }
    // An exponent counts only when digits follow it: "2e" is 2.
    if (i < end && (text[i] == QLatin1Char('e') || text[i] == QLatin1Char('E'))) {
        qsizetype j = i + 1;
        if (j < end && (text[j] == QLatin1Char('+') || text[j] == QLatin1Char('-'))) {
            ++j;
        }
        if (j < end && IsDigit(text[j])) {
            while (j < end && IsDigit(text[j])) {
                ++j;
            }
            i = j;
        }
    }
    return i - start;
}

}  // namespace

void SetTextFieldNumber(QLineEdit& field, double value) {
    field.setText(QString::number(value));
}

void SetTextFieldFloat(QLineEdit& field, float value) {
    QString text;
    for (int digits = 6; digits <= 9; ++digits) {
        text = QString::number(static_cast<double>(value), 'g', digits);
        if (LeadingFloatValue(text) == value) {
            break;
        }
    }
    field.setText(text);
}

float LeadingFloatValue(QStringView text) {
    qsizetype start = 0;
    while (start < text.size() && text[start].isSpace()) {
        ++start;
    }
    const qsizetype length = NumberLength(text, start);
    if (length == 0) {
        return 0.0f;
    }
    // from_chars takes no leading "+".
    if (text[start] == QLatin1Char('+')) {
        return LeadingFloatValue(text.mid(start + 1, length - 1));
    }
    const std::string number = text.mid(start, length).toLatin1().toStdString();
    const char* first = number.data();
    const char* last = first + number.size();
    float value = 0.0f;
    if (std::from_chars(first, last, value).ec != std::errc::result_out_of_range) {
        return value;
    }
    // Beyond single precision: too large becomes infinite, too small zero,
    // each with its sign (from_chars leaves the value alone).
    const bool negative = number.front() == '-';
    double wide = 0.0;
    const bool fitsDouble = std::from_chars(first, last, wide).ec != std::errc::result_out_of_range;
    const bool tooLarge = fitsDouble ? std::abs(wide) > std::numeric_limits<float>::max()
                                     : number.find("e-") == std::string::npos &&
                                           number.find("E-") == std::string::npos;
    const float magnitude = tooLarge ? std::numeric_limits<float>::infinity() : 0.0f;
    return negative ? -magnitude : magnitude;
}

float TextFieldFloatValue(const QLineEdit& field) {
    return LeadingFloatValue(field.text());
}

void AcceptNumbersOnly(QLineEdit& field) {
    static const QRegularExpression kNumber(
        QStringLiteral(R"([+-]?(\d+\.?\d*|\.\d*)?([eE][+-]?\d*)?)"));
    field.setValidator(new QRegularExpressionValidator(kNumber, &field));
}

}  // namespace vellumo
