#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

/// A sentence for the user: the English text, which is also its translation key, and what fills its placeholders.
/// Translated first and filled afterwards, when it is shown.
struct Message {
    Q_GADGET
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QStringList arguments MEMBER arguments)
public:
    QString text;
    QStringList arguments;
    bool operator==(const Message &) const = default;
};

/// Replaces "%@", "%ld" and "%d" by the arguments in their order and "%%" by "%". A placeholder without an argument
/// stays as it is. Arguments are never read as placeholders themselves.
QString filled(const QString &sentence, const QStringList &arguments);

QString english(const Message &message);
