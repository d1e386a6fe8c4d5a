#pragma once

#include "emulators/bios/BiosFiles.h"
#include "emulators/settings/EmulatorChanges.h"
#include "fakes/FakeGamepads.h"
#include "fakes/FakeTrash.h"
#include "platform/linux/LinuxServices.h"
#include "play/ControllerInput.h"
#include "play/shots/ScreenshotStore.h"
#include "ui/ListHouse.h"
#include "ui/window/VelkoWindow.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

inline QStringList warnings;

inline void keepWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg && type != QtInfoMsg) warnings += text;
}

/// The real window, offscreen, with a few games. Pictures are made in the background, as always.
struct WindowHouse : ListHouse {
    std::unique_ptr<Tasks> background = makeTasks();
    EmulatorChanges changes{places, clock, tasks, processes};
    BiosFiles bios{places, emulators, preferences, workspace, tasks, changes};
    FakeTrash trash;
    ScreenshotStore screenshots{places, *background, trash, *store};
    FakeGamepads pads;
    ControllerInput controller{pads, clock};
    std::unique_ptr<VelkoWindow> velko;

    explicit WindowHouse(int games)
    {
        warnings.clear();
        qInstallMessageHandler(keepWarning);
        const QStringList systems{QStringLiteral("gba"), QStringLiteral("ps2"), QStringLiteral("snes"),
                                  QStringLiteral("n64")};
        for (int i = 0; i < games; ++i) {
            const QString id =
                add(QStringLiteral("Game %1").arg(i), systems[i % 4], i % 2 ? std::optional<double>(i) : std::nullopt);
            store->setFavorite(id, i % 5 == 0);
        }
        emulators.refresh();
        controller.isActive = [] { return true; };
        velko =
            std::make_unique<VelkoWindow>(WindowParts{state, *store, screenshots, emulators, bios, changes, preferences,
                                                      translator, clock, *background, workspace, places, controller});
    }
    ~WindowHouse()
    {
        velko.reset();
        qInstallMessageHandler(nullptr);
    }

    bool show(QSize size = {1280, 800})
    {
        if (!velko->load()) return false;
        window()->resize(size);
        window()->show();
        return QTest::qWaitForWindowExposed(window()) && settled();
    }
    QQuickWindow *window() const { return velko->window(); }
    bool settled() const
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        return true;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window(), key, modifiers);
        settled();
    }
    void press(PadButton button)
    {
        if (pads.plugged.isEmpty()) pads.plugIn();
        pads.tap(button);
        settled();
    }
    /// The control that has the focus: what Tab reaches, itself or around the focused item.
    QQuickItem *control() const
    {
        QQuickItem *item = window()->activeFocusItem();
        while (item && !item->activeFocusOnTab())
            item = item->parentItem();
        return item && item->isVisible() && item->isEnabled() ? item : nullptr;
    }
    QString focusedGame() const { return window()->activeFocusItem()->property("gameID").toString(); }
};
