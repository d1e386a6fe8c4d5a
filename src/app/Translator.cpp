#include "app/Translator.h"

#include "app/HostWordings.h"

Translator::Translator(AppLanguage language, Host host, QObject *parent)
    : QObject(parent), m_language(language), m_host(host)
{ }

QString Translator::translate(const QString &text) const
{
    return hostWording(text, m_host);
}

QString Translator::fill(const QString &text, const QStringList &arguments) const
{
    return filled(translate(text), arguments);
}

QString Translator::message(const Message &message) const
{
    return told(message, [this](const QString &text) { return translate(text); });
}
