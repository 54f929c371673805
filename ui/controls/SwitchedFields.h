#pragma once

// A rule's row of controls: a check box that turns the rule on, then the
// rule's fields, each with a label before it and a unit after; the fields
// take part only while the check box is on. Where the row is narrower than
// its fields, each labelled field moves whole onto a line of its own under
// the check box's text. A click on the check box, or an
// edit in a field, emits changed(). The portrait, trim and pad boxes each
// add their own fields and read and write their part of CropSettings.

#include <QString>
#include <QWidget>
#include <initializer_list>
#include <vector>

class QCheckBox;
class QHBoxLayout;
class QLayout;
class QVBoxLayout;
class QLineEdit;
class QSpinBox;

namespace vellumo {

class FlowLayout;

class SwitchedFields : public QWidget {
    Q_OBJECT

  public:
    // The check box says `title`, is named `checkName` and explains itself
    // with `toolTip`; the row begins `indent` pixels in.
    SwitchedFields(const QString& title, const QString& checkName, const QString& toolTip,
                   int indent, QWidget* parent = nullptr);

    bool IsOn() const;
    // Shows `on` (sending nothing) and settles the fields.
    void SetOn(bool on);

  Q_SIGNALS:
    void changed();

  protected:
    // A field for an unsigned decimal number, narrow and right-aligned.
    QLineEdit* NumberField(const char* name, const QString& accessibleName);

    // Puts `field` at the end of the row, after `label` and before `unit`
    // (either left out when empty), switched with the check box. Edits
    // emit changed(); a spin box's value set by the program does not when
    // its signals are blocked.
    void AddField(const QString& label, QLineEdit* field, const QString& unit);
    void AddField(const QString& label, QSpinBox* field, const QString& unit);
    // A control switched with the check box whose signals the box connects
    // itself.
    void AddSwitched(QWidget* control);
    // A further line under the row.
    void AddLine(QLayout* line);
    // The controls side by side, held together where a line wraps.
    QWidget* Group(std::initializer_list<QWidget*> controls);
    // An empty line for AddLine that wraps as the row does.
    FlowLayout* WrappingLine() const;
    // The pixels by which the lines a row wraps onto begin further in than
    // the row: under the check box's text.
    int WrapIndent() const;

    // Enables the fields while the check box is on; a box with more to
    // settle extends it.
    virtual void SettleFields();

  private:
    void Put(const QString& label, QWidget* field, const QString& unit);

    QCheckBox* on_;
    QVBoxLayout* lines_;
    FlowLayout* row_;
    // The labelled field last put in the row, which a field without a
    // label joins (the two sides of a ratio stay together).
    QHBoxLayout* group_ = nullptr;
    std::vector<QWidget*> switched_;
};

}  // namespace vellumo
