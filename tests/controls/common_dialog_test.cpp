#include "support/forms_support.h"
#include "support/when_open.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include <sys/inotify.h>
#include <unistd.h>

namespace lumrake::testing {
namespace {

TEST(FileDialog, OpensNothingAndRemembersWhereAndAmongWhatWasChosen) {
    const Stage stage;
    SetFileDialogAnswerer({});
    QDir(stage.Path(QString())).mkdir(u"Sub"_qs);
    const QString hero = stage.MakeFile(u"Sub/Hero.Q7"_qs, NoiseBytes(9));
    const int watch = inotify_init1(IN_NONBLOCK);
    inotify_add_watch(watch, QFile::encodeName(hero), IN_OPEN);
    comDialog.Filter = u"Snapshots (*.SNA)|*.SNA|Others (*.Q7)|*.Q7"_qs;
    // The same name in other letters: with its path, then where the first one left the dialog.
    for (const QString& typed : {stage.Path(u"sub/hero.q7"_qs), u"HERO.q7"_qs}) {
        comDialog.FileName.clear();
        const WhenOpen<QFileDialog> typing([&](QFileDialog& dialog) {
            auto* types = dialog.findChild<QComboBox*>(u"fileTypeCombo"_qs);
            const auto* list = dialog.findChild<QTreeView*>();
            if (typed.contains(u'/')) {
                QTest::keyClick(types, Qt::Key_Down);
            } else {
                EXPECT_TRUE(
                    QTest::qWaitFor([&] { return list->model()->hasIndex(0, 0, list->rootIndex()); }, 60000));
            }
            EXPECT_EQ(types->currentIndex(), 1);
            dialog.findChild<QLineEdit*>()->setText(typed);
            QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open),
                              Qt::LeftButton);
        });
        comDialog.Action(CommonDialog::Kind::Open);
        EXPECT_EQ(comDialog.FileName, hero);
    }
    char event[1000];
    EXPECT_LT(read(watch, event, sizeof event), 0) << "it was opened";
    close(watch);
}

} // namespace
} // namespace lumrake::testing
