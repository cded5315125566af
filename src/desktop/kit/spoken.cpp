#include "desktop/kit/spoken.h"

#include <QAccessibleWidget>

namespace counter {

namespace {

class SpokenAccess : public QAccessibleWidget {
  public:
    SpokenAccess(QWidget& widget, const Spoken& spoken)
        : QAccessibleWidget(&widget, spoken.SpokenRole()), spoken_(spoken) {}
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? spoken_.SpokenValue() : QAccessibleWidget::text(which);
    }

  private:
    const Spoken& spoken_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
    const auto* spoken = dynamic_cast<Spoken*>(object);
    auto* widget = qobject_cast<QWidget*>(object);
    return spoken && widget ? new SpokenAccess(*widget, *spoken) : nullptr;
}

}  // namespace

void ServeSpoken() {
    QAccessible::installFactory(MakeAccess);
}

}  // namespace counter
