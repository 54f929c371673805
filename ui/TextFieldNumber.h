#pragma once

class QLineEdit;

namespace vellumo {

// Puts a number into a text field in the usual short form: 20 as "20",
// 12.5 as "12.5".
void SetTextFieldNumber(QLineEdit& field, double value);

}  // namespace vellumo
