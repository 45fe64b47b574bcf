#pragma once

#include <QAccessible>

class QWidget;

namespace lumrake {

/// Tells screen readers what a control is that the toolkit has no class of its own for; without a role such a
/// control is a bare area to them. To be called before the control gets its name: once it was told of, it
/// keeps the role of that moment.
void SetAccessibleRole(QWidget* control, QAccessible::Role role);

} // namespace lumrake
