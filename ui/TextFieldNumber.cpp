#include "ui/TextFieldNumber.h"

#include <QLineEdit>

namespace vellumo {

void SetTextFieldNumber(QLineEdit& field, double value) {
    field.setText(QString::number(value));
}

}  // namespace vellumo
