#include "controls/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace lumrake {

namespace {

const char* const kRole = "AccessibleRole";

/// Asked for every object, before the toolkit's own; null leaves it to those.
QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    const QVariant role = object == nullptr ? QVariant() : object->property(kRole);
    return role.isValid() ? new QAccessibleWidget(static_cast<QWidget*>(object),
                                                  static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}

} // namespace

void SetAccessibleRole(QWidget* control, QAccessible::Role role) {
    QAccessible::installFactory(MakeInterface); // once; the toolkit keeps no second one
    control->setProperty(kRole, static_cast<int>(role));
}

} // namespace lumrake
