#include "ui/sheet/ContactSheetCellDelegate.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QListView>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <cmath>

#include "ui/WindowLocale.h"
#include "ui/preview/CropFrame.h"
#include "ui/thumbnails/ThumbnailLoader.h"

namespace vellumo {

namespace {

constexpr int kTextGap = 6;
constexpr int kPlaceholderIconSide = 40;
constexpr int kVeilAlpha = 150;
constexpr int kMarkRadius = 7;

QString SizeText(Size size) {
    // The numbers as the window's language writes them.
    return QStringLiteral("%1 × %2").arg(
        WindowNumber(static_cast<qlonglong>(std::trunc(size.width))),
        WindowNumber(static_cast<qlonglong>(std::trunc(size.height))));
}

void DrawVeil(QPainter& painter, const QRectF& picture, const QRectF& kept) {
    QPainterPath veil;
    veil.addRect(picture);
    QPainterPath hole;
    hole.addRect(kept);
    painter.fillPath(veil.subtracted(hole), QColor(0, 0, 0, kVeilAlpha));
    if (kept.isEmpty()) {
        return;
    }
    // A dark line under a light one shows on light and dark pictures alike.
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 160), 3));
    painter.drawRect(kept.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setPen(QPen(QColor(255, 255, 255, 230), 1));
    painter.drawRect(kept.adjusted(0.5, 0.5, -0.5, -0.5));
}

// A small round badge at the picture's top-right corner: adjusted by hand.
void DrawAdjustedMark(QPainter& painter, const QRectF& picture) {
    const QPointF centre(picture.right() - kMarkRadius - 3, picture.top() + kMarkRadius + 3);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(AdjustedMarkColour());
    painter.drawEllipse(centre, kMarkRadius, kMarkRadius);
    // A pencil stroke.
    painter.setPen(QPen(Qt::white, 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre + QPointF(-3, 3), centre + QPointF(3, -3));
}

}  // namespace

ContactSheetCellDelegate::ContactSheetCellDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

QSize ContactSheetCellDelegate::CellSize(const QFontMetrics& metrics) {
    return {kCellWidth,
            kCellPadding + kPictureSide + kTextGap + 2 * metrics.height() + 2 * kCellPadding};
}

QRect ContactSheetCellDelegate::PictureBox(const QRect& cell) {
    return {cell.left() + (cell.width() - kPictureSide) / 2, cell.top() + kCellPadding + 2,
            kPictureSide, kPictureSide};
}

QRectF ContactSheetCellDelegate::PictureRect(const QRect& box, QSize pictureSize,
                                             qreal devicePixelRatio) {
    const QSizeF size = QSizeF(pictureSize) / devicePixelRatio;
    // Whole logical pixels, so the picture is copied, not resampled.
    const double left = std::round(box.left() + (box.width() - size.width()) / 2);
    const double top = std::round(box.top() + (box.height() - size.height()) / 2);
    return {left, top, size.width(), size.height()};
}

QRectF ContactSheetCellDelegate::CutOnPicture(const QRectF& picture, Size fullSize, Rect cut) {
    if (!(fullSize.width > 0.0) || !(fullSize.height > 0.0)) {
        return {};
    }
    const double sx = picture.width() / fullSize.width;
    const double sy = picture.height() / fullSize.height;
    const QRectF kept(picture.left() + cut.x * sx,
                      picture.top() + (fullSize.height - cut.y - cut.height) * sy, cut.width * sx,
                      cut.height * sy);
    return kept.intersected(picture);
}

QSize ContactSheetCellDelegate::sizeHint(const QStyleOptionViewItem& option,
                                         const QModelIndex&) const {
    // A cell fills its place in the grid, which may be wider than needed.
    if (const auto* view = qobject_cast<const QListView*>(option.widget)) {
        if (view->gridSize().isValid()) {
            return view->gridSize();
        }
    }
    return CellSize(option.fontMetrics);
}

void ContactSheetCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QPalette& palette = option.palette;
    const QRect cell = option.rect.adjusted(3, 3, -3, -3);
    if (option.state & QStyle::State_Selected) {
        QColor fill = palette.color(QPalette::Highlight);
        fill.setAlpha(60);
        painter->setPen(QPen(palette.color(QPalette::Highlight), 1.5));
        painter->setBrush(fill);
        painter->drawRoundedRect(QRectF(cell).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    }

    const QString path = index.data(Qt::DisplayRole).toString();
    const QRect box = PictureBox(cell);
    const Thumbnail* thumbnail = loader_ != nullptr ? loader_->Find(path) : nullptr;
    QString sizeLine;
    if (thumbnail != nullptr && !thumbnail->cellPicture.isNull()) {
        const QImage& picture = thumbnail->cellPicture;
        const QRectF target = PictureRect(box, picture.size(), picture.devicePixelRatio());
        painter->drawImage(target, picture);
        const std::optional<CellCrop> crop =
            crops_ ? crops_(path, thumbnail->fullSize) : std::nullopt;
        if (crop) {
            painter->setRenderHint(QPainter::Antialiasing, false);
            DrawVeil(*painter, target, CutOnPicture(target, thumbnail->fullSize, crop->cut));
            painter->setRenderHint(QPainter::Antialiasing);
            if (crop->adjusted) {
                DrawAdjustedMark(*painter, target);
            }
            sizeLine = SizeText(crop->outputSize);
        } else {
            sizeLine = SizeText(thumbnail->fullSize);
        }
    } else {
        // Until the thumbnail is made: a quiet box with the row's icon (the
        // file kind, or a warning for a file that cannot be read).
        QColor shade = palette.color(QPalette::Text);
        shade.setAlpha(18);
        painter->setPen(Qt::NoPen);
        painter->setBrush(shade);
        painter->drawRoundedRect(QRectF(box).adjusted(8, 8, -8, -8), 4, 4);
        const bool failed = loader_ != nullptr && loader_->HasFailed(path);
        const QIcon icon = failed
                               ? QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning)
                               : index.data(Qt::DecorationRole).value<QIcon>();
        const QRect iconRect(box.center().x() - kPlaceholderIconSide / 2 + 1,
                             box.center().y() - kPlaceholderIconSide / 2 + 1, kPlaceholderIconSide,
                             kPlaceholderIconSide);
        icon.paint(painter, iconRect);
    }

    const QFontMetrics& metrics = option.fontMetrics;
    const QRect nameRect(cell.left() + kCellPadding, box.bottom() + 1 + kTextGap,
                         cell.width() - 2 * kCellPadding, metrics.height());
    const QRect sizeRect = nameRect.translated(0, metrics.height());
    painter->setPen(palette.color(QPalette::Text));
    painter->drawText(
        nameRect, Qt::AlignHCenter | Qt::AlignVCenter,
        metrics.elidedText(QFileInfo(path).fileName(), Qt::ElideMiddle, nameRect.width()));
    painter->setPen(palette.color(QPalette::PlaceholderText));
    painter->drawText(sizeRect, Qt::AlignHCenter | Qt::AlignVCenter, sizeLine);
    painter->restore();
}

}  // namespace vellumo
