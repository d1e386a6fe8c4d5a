#pragma once

#include "app/AppLanguage.h"
#include "base/Host.h"
#include "base/Message.h"

#include <QHash>
#include <QObject>

/// Looks up what the user reads, by its English text. Host wordings come first, so that a sentence about the Mac reads
/// as one about Linux in every language; then the table of the language; a text without an entry stays English.
class Translator : public QObject {
    Q_OBJECT
public:
    /// English texts, their placeholders included, to those of the language.
    using Table = QHash<QString, QString>;
    Translator(AppLanguage language, Host host, Table table = {}, QObject *parent = nullptr);

    AppLanguage language() const { return m_language; }
    Q_INVOKABLE QString translate(const QString &text) const;
    /// Translated first, filled afterwards.
    Q_INVOKABLE QString fill(const QString &text, const QStringList &arguments) const;
    Q_INVOKABLE QString message(const Message &message) const;

private:
    AppLanguage m_language;
    Host m_host;
    Table m_table;
};
