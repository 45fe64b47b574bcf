#pragma once

#include <QAccessible>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace lumrake {

/// What a screen reader hears of a control and can do with it where the toolkit has no class of its own for the
/// control; without a role such a control is a bare area to it. What is left empty is as the toolkit has it.
struct Spoken {
    QAccessible::Role role = QAccessible::Client;
    std::function<QString()> name{}, description{}; ///< asked for when they are wanted
    struct Action {
        const char* name;
        std::function<void()> act;
    };
    /// Not done while the control is disabled or a dialog stands before it, as clicks are not.
    std::vector<Action> actions{};
    /// A number from 0 to `most` that can be set.
    std::function<int()> value{}, most{};
    std::function<void(int)> setValue{};
};

/// Takes the place of what was said of the control before.
void SetSpoken(QWidget* control, Spoken spoken);

/// Lets screen readers know when the name or description is no longer what it was at the last call; costs nothing
/// while there are none.
void TellSpoken(QWidget* control);

/// Lets them know that what the control says is to be read out now.
void Announce(QWidget* control);

} // namespace lumrake
