#include "ui/thumbnails/SharedThumbnails.h"

#include <sys/stat.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QTemporaryFile>
#include <cerrno>
#include <cmath>
#include <cstdio>

#include "ui/thumbnails/PngText.h"

namespace vellumo {

namespace {

constexpr char kUriKey[] = "Thumb::URI";
constexpr char kMTimeKey[] = "Thumb::MTime";
constexpr char kSizeKey[] = "Thumb::Size";
constexpr char kWidthKey[] = "Thumb::Image::Width";
constexpr char kHeightKey[] = "Thumb::Image::Height";
constexpr char kSoftwareKey[] = "Software";
// Keys of one program's own start with "X-".
constexpr char kPagesKey[] = "X-Vellumo::Pages";

// The bytes GLib leaves as they are in a file URI's path: letters, digits,
// "-._~", the sub-delimiters but ';', and ":@/".
bool KeptInUri(char c) {
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) {
        return true;
    }
    return QByteArrayView("-._~!$&'()*+,=:@/").contains(c);
}

// Makes `folder` (and missing parents) with mode 0700; true when it exists.
bool MakePrivateFolder(const QString& folder) {
    if (QFileInfo(folder).isDir()) {
        return true;
    }
    const QString parent = QFileInfo(folder).absolutePath();
    if (parent != folder && !MakePrivateFolder(parent)) {
        return false;
    }
    return ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU) == 0 || errno == EEXIST;
}

// The upright size, for thumbnails other programs wrote from the file's
// stored (unrotated) size: a portrait picture with a landscape size is the
// size turned.
Size UprightSize(const QImage& picture, Size stored) {
    const double pictureRatio = double(picture.width()) / picture.height();
    const double storedRatio = stored.width / stored.height;
    constexpr double kClearly = 1.1;
    if ((pictureRatio > kClearly && storedRatio < 1.0 / kClearly) ||
        (pictureRatio < 1.0 / kClearly && storedRatio > kClearly)) {
        return {stored.height, stored.width};
    }
    return stored;
}

}  // namespace

QByteArray ThumbnailUri(const QString& path) {
    const QByteArray bytes = QFile::encodeName(QFileInfo(path).absoluteFilePath());
    QByteArray uri("file://");
    for (const char c : bytes) {
        if (KeptInUri(c)) {
            uri += c;
        } else {
            uri += '%';
            uri += QByteArray::number(static_cast<unsigned char>(c), 16)
                       .rightJustified(2, '0')
                       .toUpper();
        }
    }
    return uri;
}

QString SharedThumbnailFolder() {
    QString cacheHome = qEnvironmentVariable("XDG_CACHE_HOME");
    if (cacheHome.isEmpty() || QDir::isRelativePath(cacheHome)) {
        cacheHome = QDir::homePath() + QStringLiteral("/.cache");
    }
    return cacheHome + QStringLiteral("/thumbnails/large");
}

QString SharedThumbnailPath(const QString& path) {
    const QByteArray md5 =
        QCryptographicHash::hash(ThumbnailUri(path), QCryptographicHash::Md5).toHex();
    return SharedThumbnailFolder() + '/' + QString::fromLatin1(md5) + QStringLiteral(".png");
}

std::optional<SharedThumbnail> ReadSharedThumbnail(const QString& path, qint64 mtimeSeconds) {
    // The keys are read from the decoded image: QImageReader::text splits
    // keys at their first colon, and every key here has two.
    QImageReader reader(SharedThumbnailPath(path), "png");
    QImage picture = reader.read();
    if (picture.isNull() ||
        picture.text(QString::fromLatin1(kUriKey)).toUtf8() != ThumbnailUri(path) ||
        picture.text(QString::fromLatin1(kMTimeKey)).toLongLong() != mtimeSeconds) {
        return std::nullopt;
    }
    bool hasWidth = false;
    bool hasHeight = false;
    const double width = picture.text(QString::fromLatin1(kWidthKey)).toDouble(&hasWidth);
    const double height = picture.text(QString::fromLatin1(kHeightKey)).toDouble(&hasHeight);
    if (!hasWidth || !hasHeight || !(width > 0.0) || !(height > 0.0)) {
        return std::nullopt;
    }
    const int pages = picture.text(QString::fromLatin1(kPagesKey)).toInt();
    SharedThumbnail thumbnail;
    thumbnail.fullSize = UprightSize(picture, Size{width, height});
    thumbnail.picture = std::move(picture);
    thumbnail.pages = std::max(1, pages);
    return thumbnail;
}

bool WriteSharedThumbnail(const QString& path, qint64 mtimeSeconds,
                          const SharedThumbnail& thumbnail) {
    const QString folder = SharedThumbnailFolder();
    if (thumbnail.picture.isNull() || !MakePrivateFolder(folder)) {
        return false;
    }
    // QTemporaryFile makes its file with mode 0600.
    QTemporaryFile temporary(folder + QStringLiteral("/.vellumo-XXXXXX.png"));
    if (!temporary.open()) {
        return false;
    }
    // Thumb::URI is UTF-8 escaped to ASCII, the other values are numbers.
    const PngTexts texts = {
        {kUriKey, ThumbnailUri(path)},
        {kMTimeKey, QByteArray::number(mtimeSeconds)},
        {kSizeKey, QByteArray::number(QFileInfo(path).size())},
        {kWidthKey, QByteArray::number(std::llround(thumbnail.fullSize.width))},
        {kHeightKey, QByteArray::number(std::llround(thumbnail.fullSize.height))},
        {kSoftwareKey, "Vellumo"},
        {kPagesKey, QByteArray::number(thumbnail.pages)},
    };
    const QByteArray png = PngWithTexts(thumbnail.picture, texts);
    if (png.isEmpty() || temporary.write(png) != png.size() || !temporary.flush()) {
        return false;
    }
    temporary.close();
    const QByteArray from = QFile::encodeName(temporary.fileName());
    const QByteArray to = QFile::encodeName(SharedThumbnailPath(path));
    if (std::rename(from.constData(), to.constData()) != 0) {
        return false;
    }
    temporary.setAutoRemove(false);
    return true;
}

}  // namespace vellumo
