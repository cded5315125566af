// A chart as a picture of its own, black on white whatever the theme: in a file or for the clipboard.
#pragma once

#include <QImage>
#include <QSize>
#include <string>

#include "desktop/kit/chart_painter.h"
#include "platform/status.h"

namespace counter {

enum class PictureFormat { Bmp, Png, Svg };

// By the end of the name, in either case; PNG where it says none of them.
PictureFormat PictureFormatOf(const std::string& path);

// `size` is that on the screen; the picture has `ratio` pixels for each of its.
QImage ChartPicture(const ChartLayers& layers, QSize size, double ratio);

// Replaces a file that is there.
Status SaveChartPicture(const ChartLayers& layers, QSize size, double ratio, const std::string& path,
                        PictureFormat format);

}  // namespace counter
