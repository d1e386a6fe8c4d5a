#include "play/supervision/MenuCommand.h"

#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

static QString plain(const QString &title)
{
    return title.toLower().replace(u'’', u'\'');
}

/// Whether pressing it does the command at once.
static bool actsAtOnce(const MenuEntry &entry)
{
    static const QRegularExpression asksOrUndoes(uR"re(\b(file|fichier|undo|annuler)\b|(…|\.\.\.)\s*$)re"_s,
                                                 QRegularExpression::UseUnicodePropertiesOption);
    return entry.enabled && entry.pressable && !asksOrUndoes.match(plain(entry.title)).hasMatch();
}

/// What follows a bracket or a dash is when the slot was saved.
static bool isFirstSlot(const MenuEntry &entry)
{
    static const QRegularExpression one(uR"re(\b0?1\b)re"_s);
    return one.match(entry.title.section(u'(', 0, 0).section(u" - "_s, 0, 0)).hasMatch();
}

std::optional<MenuEntry> findMenuCommand(const QList<MenuEntry> &entries, const QStringList &titles)
{
    for (const QString &title : titles) {
        const auto named = std::find_if(entries.begin(), entries.end(), [&](const MenuEntry &entry) {
            return actsAtOnce(entry) && plain(entry.title).contains(title);
        });
        if (named != entries.end()) return *named;
    }
    for (const QString &title : titles) {
        const auto slot = std::find_if(entries.begin(), entries.end(), [&](const MenuEntry &entry) {
            return !entry.path.isEmpty() && plain(entry.path.last()).contains(title) && actsAtOnce(entry)
                && isFirstSlot(entry);
        });
        if (slot != entries.end()) return *slot;
    }
    return {};
}
