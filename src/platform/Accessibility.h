#pragma once

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>
#include <functional>

/// A window as the accessibility interface describes it.
struct AccessibleWindow {
    enum class Role { frame, dialog, alert, other };
    Role role = Role::other;
    QString title;
    QSize size;
    bool hasButton = false; ///< among its descendants
    bool operator==(const AccessibleWindow &) const = default;
};

/// An entry of a program's menus.
struct MenuEntry {
    QString title; ///< without mnemonic and shortcut
    QStringList path; ///< titles of the menus that it is in, the outermost first
    bool enabled = false; ///< it and everything that it is in
    bool pressable = false; ///< it does something; false for what only opens a menu
    QString reference; ///< for `press`; means nothing after the program has ended
    bool operator==(const MenuEntry &) const = default;
};

/// Reads and presses other programs' controls. Everything is asynchronous and limited in time: a program that does not
/// answer, as a stopped one, gives the empty answer. `done` comes once, on the main thread, never from inside the call,
/// and not at all when the service has gone. A program is found by any of its processes.
class Accessibility {
public:
    virtual ~Accessibility() = default;
    virtual bool isAvailable() const = 0; ///< whether programs can be reached at all on this desktop
    virtual void windows(const QList<qint64> &pids, std::function<void(QList<AccessibleWindow>)> done) = 0;
    /// Every entry of the menu bars, in the order in which they are read. Menus whose title contains one of `opened`
    /// in lower case are opened first: some programs fill them only then.
    virtual void menu(const QList<qint64> &pids, const QStringList &opened,
                      std::function<void(QList<MenuEntry>)> done) = 0;
    virtual void press(const MenuEntry &entry, std::function<void(bool pressed)> done) = 0;
};
