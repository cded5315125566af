#include "desktop/kit/chart_files.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QSvgGenerator>

#include "system/disk_files.h"

namespace counter {

namespace {

// A size of 1 is the 96th part of an inch, as on the screen.
constexpr int kDotsPerInch = 96;

void DrawSvg(QBuffer& buffer, const ChartLayers& layers, QSize size) {
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setResolution(kDotsPerInch);
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(), size));
    svg.setTitle(QStringLiteral("Readings"));
    QPainter painter(&svg);
    PaintChart(painter, QRectF(QPointF(), size), layers);
}

}  // namespace

PictureFormat PictureFormatOf(const std::string& path) {
    const QString suffix = QFileInfo(QFile::decodeName(path.c_str())).suffix().toUpper();
    if (suffix == QLatin1String("BMP")) return PictureFormat::Bmp;
    return suffix == QLatin1String("SVG") ? PictureFormat::Svg : PictureFormat::Png;
}

QImage ChartPicture(const ChartLayers& layers, QSize size, double ratio) {
    QImage picture(size * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.setDotsPerMeterX(qRound(kDotsPerInch * ratio / 0.0254));
    picture.setDotsPerMeterY(qRound(kDotsPerInch * ratio / 0.0254));
    picture.fill(ChartColors().Paper);
    QPainter painter(&picture);
    PaintChart(painter, QRectF(QPointF(), size), layers);
    return picture;
}

Status SaveChartPicture(const ChartLayers& layers, QSize size, double ratio, const std::string& path,
                        PictureFormat format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    bool made = true;
    if (format == PictureFormat::Svg) {
        DrawSvg(buffer, layers, size);
    } else {
        const char* name = format == PictureFormat::Bmp ? "BMP" : "PNG";
        made = ChartPicture(layers, size, ratio).save(&buffer, name);
    }
    if (!made) return {StatusKind::Other, path, "The picture can't be made"};
    return DiskFiles().Write(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace counter
