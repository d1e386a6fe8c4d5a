// velko-test-menus FILE: a program with menus as emulators have them. The titles of entries that were pressed go to
// FILE.

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QFile pressed(application.arguments().value(1));
    if (!pressed.open(QFile::WriteOnly)) return 1;
    QMainWindow window;
    window.setWindowTitle(u"Game"_s);
    window.resize(640, 480);
    const auto add = [&](QMenu *menu, const QString &title) {
        return menu->addAction(title, &window, [&pressed, title] {
            pressed.write(title.toUtf8() + (QApplication::activePopupWidget() ? " under an open menu\n" : "\n"));
            pressed.flush();
        });
    };

    QMenu *file = window.menuBar()->addMenu(u"&File"_s);
    QMenu *quickSave = file->addMenu(u"Quick &save"_s);
    add(quickSave, u"State &1"_s)->setShortcut(Qt::SHIFT | Qt::Key_F1);
    add(quickSave, u"State 2"_s)->setEnabled(false);
    file->addSeparator();
    QMenu *quickLoad = file->addMenu(u"Quick load"_s);
    add(quickLoad, u"Load 1"_s);
    quickLoad->menuAction()->setEnabled(false);
    QMenu *late = window.menuBar()->addMenu(u"System"_s)->addMenu(u"Save State"_s);
    QObject::connect(late, &QMenu::aboutToShow, &window, [&] {
        late->clear();
        add(late, u"Slot 1"_s);
    });
    QMenu *never = file->addMenu(u"Recent"_s); // is not to be opened
    QObject::connect(never, &QMenu::aboutToShow, &window, [&] { add(never, u"Opened"_s); });
    file->addAction(u"Quit…"_s, &window, [&] { QMessageBox::question(&window, u"Confirm"_s, u"Really?"_s); });

    QDialog hidden(&window);
    hidden.setWindowTitle(u"Hidden"_s);
    hidden.winId(); // makes it, but does not show it
    window.show();
    return application.exec();
}
