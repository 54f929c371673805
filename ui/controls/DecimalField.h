#pragma once

// Text fields that hold a double exactly: a profile's trim tolerance or pad
// ratio loaded into the window and saved again keeps every digit.

#include <QString>

class QLineEdit;
class QObject;
class QValidator;

namespace vellumo {

// The shortest text that reads back as exactly `value`: 12.5 as "12.5".
void SetTextFieldDouble(QLineEdit& field, double value);

// The field's number, or `fallback` when it holds none (empty while typing).
double TextFieldDoubleValue(const QLineEdit& field, double fallback);

// Digits with at most one point; no sign, no exponent. A field it checks
// holds a number or is on the way to one.
QValidator* UnsignedDecimals(QObject* parent);

}  // namespace vellumo
