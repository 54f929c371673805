#pragma once

#include <QStringView>

class QLineEdit;

namespace vellumo {

// Puts a number into a text field in the usual short form: 20 as "20",
// 12.5 as "12.5".
void SetTextFieldNumber(QLineEdit& field, double value);

// Puts a single-precision number into a text field in the shortest form
// that reads back as exactly that number: 12.3f as "12.3".
void SetTextFieldFloat(QLineEdit& field, float value);

// A text's number as single precision, the way the crop fields are read: the
// number the text begins with (after any blanks), so "12.5 px" is 12.5, and 0
// when it does not begin with one ("", "px", "abc"). Decimal only, with a
// point, an optional sign and exponent; no thousands separators, no "inf" or
// "nan". Values beyond single precision become infinite.
float LeadingFloatValue(QStringView text);

// LeadingFloatValue of the field's text.
float TextFieldFloatValue(const QLineEdit& field);

// Lets a person type only numbers into the field, in the form
// LeadingFloatValue reads (a sign, digits with a point, an exponent), and
// the states on the way to one ("", "-", "1e"): "abc" cannot be typed.
void AcceptNumbersOnly(QLineEdit& field);

}  // namespace vellumo
