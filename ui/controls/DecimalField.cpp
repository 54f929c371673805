#include "ui/controls/DecimalField.h"

#include <QLineEdit>
#include <QLocale>
#include <QRegularExpressionValidator>

namespace vellumo {

void SetTextFieldDouble(QLineEdit& field, double value) {
    field.setText(QString::number(value, 'g', QLocale::FloatingPointShortest));
}

double TextFieldDoubleValue(const QLineEdit& field, double fallback) {
    bool ok = false;
    const double value = field.text().toDouble(&ok);
    return ok ? value : fallback;
}

QValidator* UnsignedDecimals(QObject* parent) {
    return new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral(R"(^\d{0,6}(\.\d{0,12})?$)")), parent);
}

}  // namespace vellumo
