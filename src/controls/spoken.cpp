#include "controls/spoken.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QApplication>
#include <QVariant>

#include <algorithm>
#include <memory>
#include <utility>

namespace lumrake {

namespace {

const char* const kSpoken = "Spoken";

struct Told : Spoken {
    QString lastName, lastDescription; ///< that readers were told of
};
using TellTale = std::shared_ptr<Told>;

TellTale SpokenOf(const QObject* control) {
    return control == nullptr ? nullptr : control->property(kSpoken).value<TellTale>();
}

class SpokenControl : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit SpokenControl(QWidget* control) : QAccessibleWidget(control) {}

    QAccessible::Role role() const override { return Words().role; }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget())) {
            state.checkable = button->isCheckable();
            state.checked = button->isChecked();
        }
        return state;
    }
    QString text(QAccessible::Text which) const override {
        const auto& words = which == QAccessible::Name ? Words().name : Words().description;
        const bool own = (which == QAccessible::Name || which == QAccessible::Description) && words;
        return own ? words() : QAccessibleWidget::text(which);
    }

    QStringList actionNames() const override {
        QStringList names;
        for (const Spoken::Action& action : Words().actions) {
            names << QLatin1String(action.name);
        }
        return names + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        const TellTale kept = SpokenOf(widget()); // an action may end the control
        const auto action = std::ranges::find(
            kept->actions, name, [](const Spoken::Action& one) { return QLatin1String(one.name); });
        if (action == kept->actions.end()) {
            QAccessibleWidget::doAction(name);
        } else if (IsOpen()) {
            action->act();
        }
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface && Words().value
                   ? static_cast<QAccessibleValueInterface*>(this)
                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return Words().value(); }
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return Words().most(); }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override {
        if (IsOpen()) {
            Words().setValue(std::clamp(value.toInt(), 0, Words().most()));
        }
    }

  private:
    const Spoken& Words() const { return *SpokenOf(widget()); }
    bool IsOpen() const {
        const QWidget* modal = QApplication::activeModalWidget();
        return widget()->isEnabled() && (modal == nullptr || modal == widget()->window());
    }
};

/// Asked for every object, before the toolkit's own; null leaves it to those.
QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    return SpokenOf(object) == nullptr ? nullptr : new SpokenControl(static_cast<QWidget*>(object));
}

void Tell(QWidget* control, QAccessible::Event what) {
    QAccessibleEvent event(control, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void SetSpoken(QWidget* control, Spoken spoken) {
    QAccessible::installFactory(MakeInterface); // once; the toolkit keeps no second one
    control->setProperty(kSpoken,
                         QVariant::fromValue(std::make_shared<Told>(Told{std::move(spoken), {}, {}})));
    // The toolkit keeps what it took the control for when it was first told of it, be it by its constructor.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(control)));
}

void TellSpoken(QWidget* control) {
    if (!QAccessible::isActive()) {
        return;
    }
    const TellTale words = SpokenOf(control);
    if (words->name && std::exchange(words->lastName, words->name()) != words->lastName) {
        Tell(control, QAccessible::NameChanged);
    }
    if (words->description &&
        std::exchange(words->lastDescription, words->description()) != words->lastDescription) {
        Tell(control, QAccessible::DescriptionChanged);
    }
}

void Announce(QWidget* control) {
    Tell(control, QAccessible::ObjectShow);
}

} // namespace lumrake
