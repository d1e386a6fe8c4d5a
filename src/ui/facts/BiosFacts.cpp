#include "ui/facts/BiosFacts.h"

#include "app/Translator.h"
#include "emulators/bios/BiosFiles.h"
#include "emulators/finding/InstalledEmulators.h"
#include "ui/CopyText.h"

using namespace Qt::StringLiterals;

BiosFacts::BiosFacts(BiosFiles &files, const InstalledEmulators &emulators, const Translator &translator,
                     const Places &places, QObject *parent)
    : QObject(parent), m_files(files), m_translator(translator), m_places(places)
{
    connect(&files, &BiosFiles::changed, this, [this](const QString &id) {
        if (m_console && id == m_console->id) emit changed();
    });
    // Another copy of the emulator looks for its files elsewhere.
    connect(&emulators, &InstalledEmulators::changed, this, [this] {
        if (m_console) m_files.look(m_console->id);
    });
}

void BiosFacts::setConsoleID(const QString &id)
{
    if (id == consoleID()) return;
    const Console *console = consoleWithID(id, m_places.host);
    m_console = console && console->bios ? console : nullptr;
    if (m_console) m_files.look(m_console->id);
    emit changed();
}

std::optional<BiosState> BiosFacts::state() const
{
    return m_console ? m_files.state(m_console->id) : std::nullopt;
}

QString BiosFacts::label() const
{
    return m_console ? m_translator.translate(m_console->bios->label) : QString();
}

QString BiosFacts::hint() const
{
    return m_console ? m_translator.translate(m_console->bios->hint) : QString();
}

QString BiosFacts::need() const
{
    if (!m_console) return {};
    return m_translator.translate(m_console->bios->required ? u"Required"_s : u"Recommended"_s);
}

QString BiosFacts::place() const
{
    if (!m_console) return {};
    if (m_console->bios->dest.kind == BiosDest::Kind::ps3Firmware)
        return m_translator.translate(u"RPCS3 installs it itself"_s);
    const auto state = this->state();
    return state ? m_translator.fill(u"They belong in %@"_s, {fromHome(state->folder, m_places)}) : QString();
}

QString BiosFacts::stateText() const
{
    const auto state = this->state();
    if (!state) return {};
    switch (state->presence) {
    case BiosPresence::notNeeded:
        return {};
    case BiosPresence::present:
        return m_translator.translate(u"In place"_s);
    case BiosPresence::unknownFile:
        return m_translator.translate(u"There is a file, but not a known one"_s);
    case BiosPresence::missing:
        break;
    }
    return state->missing.isEmpty() ? m_translator.translate(u"Missing"_s)
                                    : m_translator.message({u"Missing: %@"_s, {}, {{0, listed(state->missing)}}});
}

QString BiosFacts::stateDot() const
{
    const auto state = this->state();
    if (!state) return {};
    if (state->presence == BiosPresence::present) return u"ok"_s;
    const bool optional = state->presence == BiosPresence::missing && !m_console->bios->required;
    return optional ? u"off"_s : u"warn"_s;
}

QStringList BiosFacts::remarks() const
{
    QStringList texts;
    for (const Message &remark : state().value_or(BiosState{}).remarks)
        texts += m_translator.message(remark);
    return texts;
}

static Message fromHome(Message message, const Places &places)
{
    for (QString &argument : message.arguments)
        argument = fromHome(argument, places);
    for (auto &[place, inner] : message.inner)
        inner = fromHome(inner, places);
    return message;
}

QVariantList BiosFacts::reports() const
{
    QVariantList list;
    const auto reports = m_console ? m_files.reports(m_console->id) : QList<BiosReport>();
    for (const BiosReport &report : reports) {
        list += QVariantMap{{u"text"_s, m_translator.message(fromHome(report.message, m_places))},
                            {u"detail"_s, report.remark ? m_translator.message(*report.remark) : QString()},
                            {u"good"_s, report.installed}};
    }
    return list;
}

bool BiosFacts::busy() const
{
    return m_console && m_files.installing(m_console->id);
}

void BiosFacts::install(const QStringList &files)
{
    if (m_console && !files.isEmpty()) m_files.install(m_console->id, files);
}

bool BiosFacts::drop(const QList<QUrl> &addresses)
{
    QStringList files;
    for (const QUrl &address : addresses) {
        if (address.isLocalFile()) files += address.toLocalFile();
    }
    install(files);
    return !files.isEmpty();
}
