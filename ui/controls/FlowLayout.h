#pragma once

#include <QLayout>
#include <QList>

namespace vellumo {

// Lays its widgets out left to right and starts a new row when the width
// runs out, so a row of buttons needs only the widest button's width: a
// longer language or a narrow window moves buttons onto the next row
// instead of cutting their captions short.
class FlowLayout : public QLayout {
  public:
    FlowLayout() = default;
    ~FlowLayout() override;
    FlowLayout(const FlowLayout&) = delete;
    FlowLayout& operator=(const FlowLayout&) = delete;

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

    // Rows after the first begin this many pixels further in, as the
    // continued lines of a check box's row line up under its text.
    void setWrapIndent(int indent);
    // The room between rows, where it differs from the spacing between the
    // items of a row (negative: the same).
    void setRowSpacing(int spacing);

  private:
    // Places the items within `rect` (only measures when `place` is false)
    // and returns the height the rows take.
    int Arrange(const QRect& rect, bool place) const;
    int HorizontalGap() const;
    int VerticalGap() const;

    QList<QLayoutItem*> items_;
    int wrapIndent_ = 0;
    int rowSpacing_ = -1;
};

}  // namespace vellumo
