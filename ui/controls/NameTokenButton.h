#pragma once

// The small button beside the name field whose menu lists the tokens a name
// may hold ([FileName], [Date], [Width]…, batch/NameTemplate.h), each with
// what it stands for. Choosing one puts it into the field at the cursor, in
// place of the selected text, as typing it would.

#include <QToolButton>

class QLineEdit;

namespace vellumo {

class NameTokenButton : public QToolButton {
    Q_OBJECT

  public:
    explicit NameTokenButton(QWidget* parent = nullptr);

    // The field the tokens go into; none until set.
    void SetField(QLineEdit* field) { field_ = field; }

  Q_SIGNALS:
    // A token was put into the field (its text changed as if typed).
    void tokenInserted();

  private:
    void Insert(const QString& token);

    QLineEdit* field_ = nullptr;
};

}  // namespace vellumo
