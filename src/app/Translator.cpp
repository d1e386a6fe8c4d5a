#include "app/Translator.h"

#include "app/HostWordings.h"

#include <utility>

Translator::Translator(AppLanguage language, Host host, Table table, QObject *parent)
    : QObject(parent), m_language(language), m_host(host), m_table(std::move(table))
{ }

QString Translator::translate(const QString &text) const
{
    const QString wording = hostWording(text, m_host);
    return m_table.value(wording, wording);
}

QString Translator::fill(const QString &text, const QStringList &arguments) const
{
    return filled(translate(text), arguments);
}

QString Translator::message(const Message &message) const
{
    return told(message, [this](const QString &text) { return translate(text); });
}
