#include "desktop/pages/program_icon.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace counter {

void CarryIcon(const QString& program) {
    QSvgRenderer drawing(QStringLiteral(":/icons/%1.svg").arg(program));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    QApplication::setWindowIcon(icon);
    QApplication::setDesktopFileName(program);
}

}  // namespace counter
