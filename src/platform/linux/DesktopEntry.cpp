#include "platform/linux/DesktopEntry.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

/// The backslash sequences that every string value may hold; others stay as they are, for `Exec` has its own.
static QString withoutEscapes(const QString &value)
{
    QString plain;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar next = i + 1 < value.size() ? value[i + 1] : QChar();
        const qsizetype known = value[i] == u'\\' ? u"sntr\\"_s.indexOf(next) : -1;
        if (known < 0) {
            plain += value[i];
        } else {
            plain += u" \n\t\r\\"_s[known];
            ++i;
        }
    }
    return plain;
}

namespace {

/// Collects the arguments of an `Exec` value. An argument exists as soon as it has a character or a quote, so that a
/// field code alone leaves none behind.
class ExecSplitter {
public:
    QStringList split(const QString &value)
    {
        for (m_position = 0; m_position < value.size(); ++m_position)
            take(value);
        endArgument();
        return m_quoted ? QStringList() : m_arguments;
    }

private:
    void take(const QString &value)
    {
        const QChar c = value[m_position];
        const bool last = m_position + 1 == value.size();
        if (c == u'"') {
            m_quoted = !m_quoted;
            m_exists = true;
        } else if (c == u'\\' && !last && (!m_quoted || u"\"`$\\"_s.contains(value[m_position + 1]))) {
            add(value[++m_position]);
        } else if (c == u'%') {
            if (!last && value[++m_position] == u'%') add(u'%');
        } else if (!m_quoted && (c == u' ' || c == u'\t' || c == u'\n')) {
            endArgument();
        } else {
            add(c);
        }
    }
    void add(QChar c)
    {
        m_argument += c;
        m_exists = true;
    }
    void endArgument()
    {
        if (m_exists) m_arguments += m_argument;
        m_argument.clear();
        m_exists = false;
    }

    qsizetype m_position = 0;
    bool m_quoted = false;
    bool m_exists = false;
    QString m_argument;
    QStringList m_arguments;
};

}

QStringList splitExec(const QString &value)
{
    return ExecSplitter().split(value);
}

static void setKey(DesktopEntry &entry, const QString &key, const QString &value)
{
    if (key == "Type"_L1)
        entry.isApplication = value == "Application"_L1;
    else if (key == "Name"_L1)
        entry.name = withoutEscapes(value);
    else if (key == "Exec"_L1)
        entry.command = splitExec(withoutEscapes(value));
    else if (key == "TryExec"_L1)
        entry.tryExec = withoutEscapes(value);
    else if (key == "X-Flatpak"_L1)
        entry.flatpakID = value;
    else if (key == "Hidden"_L1)
        entry.hidden = value == "true"_L1;
}

std::optional<DesktopEntry> parseDesktopEntry(const QByteArray &text)
{
    if (text.contains('\0')) return {};
    std::optional<DesktopEntry> entry;
    bool inGroup = false;
    for (const QString &each : QString::fromUtf8(text).split(u'\n')) { // fromUtf8 drops a byte-order mark
        const QString line = each.trimmed();
        if (line.startsWith(u'[')) {
            inGroup = !entry && line == "[Desktop Entry]"_L1;
            if (inGroup) entry.emplace();
        } else if (const qsizetype equals = line.indexOf(u'='); inGroup && equals > 0 && !line.startsWith(u'#')) {
            setKey(*entry, line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
        }
    }
    return entry;
}

static bool isAssignment(const QString &argument)
{
    const qsizetype equals = argument.indexOf(u'=');
    return equals > 0 && !argument.first(equals).contains(u'/') && !argument.startsWith(u'-');
}

qsizetype programIndex(const QStringList &command)
{
    qsizetype index = 0;
    if (command.size() > 1 && QFileInfo(command.first()).fileName() == "env"_L1) {
        ++index;
        while (index + 1 < command.size() && isAssignment(command[index]))
            ++index;
    }
    return command.isEmpty() ? -1 : index;
}

QStringList flatpakCommand(const DesktopEntry &entry)
{
    const qsizetype run = entry.command.indexOf("run"_L1);
    const qsizetype id = entry.command.indexOf(entry.flatpakID);
    if (run < 1 || id < run) return {u"flatpak"_s, u"run"_s, entry.flatpakID};
    QStringList command = entry.command.first(id + 1);
    command.removeIf([](const QString &argument) {
        return argument == "--file-forwarding"_L1 || argument == "@@"_L1 || argument == "@@u"_L1;
    });
    return command;
}
