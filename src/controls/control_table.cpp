#include "controls/control_table.h"

#include "controls/limited_edit.h"
#include "controls/pictures.h"
#include "controls/tab_strip.h"
#include "controls/watch.h"
#include "disk/texts.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>

#include <cctype>

namespace lumrake {

namespace {

QWidget* PlaceOf(QWidget& form, const TabStrip* pages, const char* inside) {
    if (*inside == '\0') {
        return &form;
    }
    return std::isdigit(static_cast<unsigned char>(*inside)) != 0 ? pages->Page(*inside - '0')
                                                                  : form.findChild<QWidget*>(Latin(inside));
}

void SetFace(QWidget& control, const ControlRow& row) {
    const QString face = Latin(row.caption);
    const bool isDrawing = face.endsWith(QLatin1String(".svg"));
    if (auto* frame = qobject_cast<QGroupBox*>(&control)) {
        frame->setTitle(face);
    } else if (auto* label = qobject_cast<QLabel*>(&control)) {
        if (isDrawing) {
            label->setPixmap(LoadPicture(face, label->size(), label->devicePixelRatioF()));
        } else {
            label->setText(face);
        }
    } else if (auto* button = qobject_cast<QAbstractButton*>(&control); button == nullptr) {
        control.setAccessibleName(face);
    } else if (isDrawing) {
        constexpr QSize kIcon(16, 16);
        button->setIcon(LoadIcon(face, kIcon));
        button->setIconSize(kIcon);
        button->setAccessibleName(Latin(*row.toolTip != '\0' ? row.toolTip : row.status));
    } else {
        button->setText(face);
    }
}

} // namespace

QString ControlName(const char* array, int index) {
    return index == kAlone ? Latin(array) : QStringLiteral("%1(%2)").arg(Latin(array)).arg(index);
}

QString TagOf(const QObject* control) {
    return control->property("Tag").toString();
}

void CreateControls(QWidget& form, const TabStrip* pages, std::span<const ControlRow> rows) {
    for (const ControlRow& row : rows) {
        QWidget* control = row.make(PlaceOf(form, pages, row.inside));
        control->setObjectName(ControlName(row.array, row.index));
        control->setProperty("Tag", Latin(row.tag));
        control->setGeometry(row.x, row.y, row.w, row.h);
        control->setToolTip(Latin(row.toolTip));
        SetFace(*control, row);
        if (row.speaksOn != 0) {
            SetHelp(control, row.help, row.speaksOn);
        } else {
            control->setMouseTracking(true); // what lies under it hears of every move
        }
        if (auto* edit = dynamic_cast<LimitedEdit*>(control)) {
            edit->SetLimit(row.limit);
        }
    }
}

} // namespace lumrake
