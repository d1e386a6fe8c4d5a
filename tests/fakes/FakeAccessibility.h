#pragma once

#include "platform/Accessibility.h"

#include <QHash>
#include <QSet>
#include <deque>

/// Controls of programs that exist only in these tables. Answers wait until a test lets them come.
struct FakeAccessibility final : Accessibility {
    bool available = true;
    QHash<qint64, QList<AccessibleWindow>> shown; ///< by process
    QHash<qint64, QList<MenuEntry>> menus; ///< by process
    QSet<qint64> silent; ///< processes that do not answer, as stopped ones
    QSet<QString> dead; ///< references of entries that take no press
    QList<MenuEntry> pressed;
    std::function<void(const MenuEntry &)> onPress; ///< what the program does then
    std::deque<std::function<void()>> waiting;

    bool isAvailable() const override { return available; }
    void windows(const QList<qint64> &pids, std::function<void(QList<AccessibleWindow>)> done) override
    {
        waiting.emplace_back([this, pids, done = std::move(done)] { done(of(shown, pids)); });
    }
    void menu(const QList<qint64> &pids, const QStringList &, std::function<void(QList<MenuEntry>)> done) override
    {
        waiting.emplace_back([this, pids, done = std::move(done)] { done(of(menus, pids)); });
    }
    void press(const MenuEntry &entry, std::function<void(bool)> done) override
    {
        waiting.emplace_back([this, entry, done = std::move(done)] {
            const bool works = available && entry.pressable && entry.enabled && !dead.contains(entry.reference);
            if (works) pressed += entry;
            if (works && onPress) onPress(entry);
            done(works);
        });
    }

    /// Lets all answers come, also those to questions that an answer brings up.
    void finish()
    {
        while (!waiting.empty()) {
            const auto answer = std::move(waiting.front());
            waiting.pop_front();
            answer();
        }
    }

private:
    template <class Item>
    QList<Item> of(const QHash<qint64, QList<Item>> &table, const QList<qint64> &pids) const
    {
        QList<Item> all;
        for (const qint64 pid : pids) {
            if (available && !silent.contains(pid)) all += table.value(pid);
        }
        return all;
    }
};
