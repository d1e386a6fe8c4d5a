#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>

/// A sentence for the user: the English text, which is also its translation key, and what fills its placeholders.
/// Translated first and filled afterwards, when it is shown.
struct Message {
    Q_GADGET
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QStringList arguments MEMBER arguments)
public:
    QString text;
    QStringList arguments;
    std::map<int, Message> inner = {}; ///< by place: arguments that are texts to be translated themselves
    bool operator==(const Message &) const = default;
};

/// Replaces "%@", "%ld" and "%d" by the arguments in their order and "%%" by "%". A placeholder without an argument
/// stays as it is. Arguments are never read as placeholders themselves.
QString filled(const QString &sentence, const QStringList &arguments);

/// The sentence as the user reads it, its own text and those inside it looked up by `translated`.
QString told(const Message &message, const std::function<QString(const QString &)> &translated);
QString english(const Message &message);

/// Texts with commas between them, each of which is translated by itself.
Message listed(const QStringList &texts);
