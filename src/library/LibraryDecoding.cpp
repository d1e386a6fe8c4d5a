#include "library/LibraryFile.h"

#include <QSet>
#include <QUuid>
#include <cmath>
#include <cstring>
#include <simdjson.h>
#include <sys/mman.h>
#include <unistd.h>
#include <unordered_map>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using simdjson::ondemand::value;

namespace {

static_assert(libraryPadding >= qsizetype(simdjson::SIMDJSON_PADDING));

/// Tells whether a hash came twice. A plain table with linear search, at most half full: with 100,000 identifiers a
/// hash set costs more than all their parsing.
class SeenHashes {
public:
    bool mayRepeat = false;

    void add(size_t hash)
    {
        if (m_count * 2 >= m_table.size()) grow();
        put(hash ? hash : 1);
    }

private:
    void put(size_t hash)
    {
        size_t place = hash & (m_table.size() - 1);
        while (m_table[place] != 0 && m_table[place] != hash)
            place = (place + 1) & (m_table.size() - 1);
        mayRepeat = mayRepeat || m_table[place] == hash;
        m_table[place] = hash;
        ++m_count;
    }
    void grow()
    {
        const std::vector<size_t> old =
            std::exchange(m_table, std::vector<size_t>(std::max<size_t>(1024, m_table.size() * 4)));
        m_count = 0;
        for (const size_t hash : old) {
            if (hash) put(hash);
        }
    }

    std::vector<size_t> m_table; ///< 0: free; the size is a power of two
    size_t m_count = 0;
};

/// Reads one file. A function answers false when the file does not decode; nothing that it wrote counts then.
class Reader {
public:
    bool read(const QByteArray &json, QList<GameEntry> &games);
    /// Two games may have the same identifier; once in a blue moon they have not.
    bool mayRepeat() const { return m_ids.mayRepeat; }

private:
    template <class Object>
    struct Field {
        std::string_view key;
        bool required;
        bool (*read)(Reader &reader, value json, Object &object);
    };

    template <class Each>
    bool fields(value json, Each each);
    template <class Object, size_t count>
    bool readObject(value json, Object &object, const Field<Object> (&known)[count]);
    bool read(value json, GameEntry &game);
    bool read(value json, GameSettings &settings);
    bool read(value json, QMap<QString, double> &daily);
    bool read(value json, QString &text);
    bool read(value json, double &number);
    bool read(value json, qint64 &number);
    bool read(value json, int &number);
    bool read(value json, bool &flag) { return json.get_bool().get(flag) == simdjson::SUCCESS; }
    bool read(value json, ReferenceDate &date) { return read(json, date.seconds); }
    bool read(value json, GameStatus &status) { return readNamed(json, status, gameStatusTitled); }
    bool read(value json, QualityPreset &preset) { return readNamed(json, preset, qualityPresetNamed); }
    template <class T>
    bool read(value json, std::optional<T> &field);
    template <class T>
    bool readNamed(value json, T &named, std::optional<T> (*find)(const QString &));
    bool readID(value json, QString &id);
    bool readShared(value json, QString &text);
    bool readShared(value json, std::optional<QString> &text);
    bool readUnknown(std::string_view key, value json, UnknownKeys &keys);

    std::optional<std::string_view> plain(const char *quoted) const;
    bool view(value json, std::string_view &text);
    const QString &shared(std::string_view text);

    simdjson::ondemand::parser m_parser;
    simdjson::dom::parser m_checker;
    const char *m_end = nullptr;
    SeenHashes m_ids;
    /// Texts that many games have in common, kept once. The keys lie in the file or in the parser.
    std::unordered_map<std::string_view, QString> m_shared;
};

bool isNull(value json)
{
    bool null = false;
    return json.is_null().get(null) == simdjson::SUCCESS && null;
}

QString toText(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

/// Where the text that starts at a quote lies in the file; nothing when it holds an escape, as few do.
std::optional<std::string_view> Reader::plain(const char *quoted) const
{
    const char *start = quoted + 1;
    const auto *quote = static_cast<const char *>(std::memchr(start, '"', size_t(m_end - start)));
    if (!quote || std::memchr(start, '\\', size_t(quote - start))) return {};
    return std::string_view(start, size_t(quote - start));
}

bool Reader::view(value json, std::string_view &text)
{
    const char *start = json.raw_json_token().data();
    if (*start != '"') return false;
    const std::optional<std::string_view> plainText = plain(start);
    if (!plainText) return json.get_string().get(text) == simdjson::SUCCESS;
    simdjson::ondemand::raw_json_string passed;
    text = *plainText;
    return json.get_raw_json_string().get(passed) == simdjson::SUCCESS;
}

const QString &Reader::shared(std::string_view text)
{
    const auto known = m_shared.find(text);
    return known != m_shared.end() ? known->second : m_shared.emplace(text, toText(text)).first->second;
}

bool Reader::read(value json, QString &text)
{
    std::string_view utf8;
    if (!view(json, utf8)) return false;
    text = toText(utf8);
    return true;
}

bool Reader::readShared(value json, QString &text)
{
    std::string_view utf8;
    if (!view(json, utf8)) return false;
    text = shared(utf8);
    return true;
}

bool Reader::readShared(value json, std::optional<QString> &text)
{
    text.reset();
    return isNull(json) || readShared(json, text.emplace());
}

bool Reader::read(value json, double &number)
{
    return json.get_double().get(number) == simdjson::SUCCESS;
}

/// Other programs write whole numbers as 3.0.
bool Reader::read(value json, qint64 &number)
{
    int64_t whole = 0;
    if (json.get_int64().get(whole) == simdjson::SUCCESS) {
        number = whole;
        return true;
    }
    double real = 0;
    if (!read(json, real) || std::trunc(real) != real || std::abs(real) > 9e15) return false;
    number = qint64(real);
    return true;
}

bool Reader::read(value json, int &number)
{
    qint64 wide = 0;
    if (!read(json, wide) || !std::in_range<int>(wide)) return false;
    number = int(wide);
    return true;
}

template <class T>
bool Reader::read(value json, std::optional<T> &field)
{
    field.reset();
    return isNull(json) || read(json, field.emplace());
}

template <class T>
bool Reader::readNamed(value json, T &named, std::optional<T> (*find)(const QString &))
{
    QString text;
    if (!readShared(json, text)) return false;
    const std::optional<T> found = find(text);
    if (found) named = *found;
    return found.has_value();
}

bool Reader::readID(value json, QString &id)
{
    std::string_view text;
    if (!view(json, text)) return false;
    std::optional<QString> upper = gameID(QLatin1String(text.data(), qsizetype(text.size())));
    if (!upper) return false;
    id = *std::move(upper);
    m_ids.add(qHash(id));
    return true;
}

/// The parser skips what it is not asked for, so a value that is only copied is checked by itself: what is written
/// back must be readable again.
bool Reader::readUnknown(std::string_view key, value json, UnknownKeys &keys)
{
    std::string_view text;
    simdjson::ondemand::json_type type;
    if (json.type().get(type)) return false;
    simdjson::ondemand::object object;
    simdjson::ondemand::array array;
    if (type == simdjson::ondemand::json_type::object) {
        if (json.get_object().get(object) || object.raw_json().get(text)) return false;
    } else if (type == simdjson::ondemand::json_type::array) {
        if (json.get_array().get(array) || array.raw_json().get(text)) return false;
    } else {
        text = json.raw_json_token();
    }
    const QByteArray raw = QByteArray(text.data(), qsizetype(text.size())).trimmed();
    if (m_checker.parse(raw.data(), size_t(raw.size())).error()) return false;

    keys.emplaceBack(shared(key), raw);
    return true;
}

/// Calls `each(key, value)` for every field of an object.
template <class Each>
bool Reader::fields(value json, Each each)
{
    simdjson::ondemand::object object;
    if (json.get_object().get(object)) return false;
    for (auto next : object) {
        simdjson::ondemand::field field;
        if (std::move(next).get(field)) return false;
        std::string_view key;
        if (const auto plainKey = plain(field.key().raw() - 1))
            key = *plainKey;
        else if (field.unescaped_key().get(key))
            return false;
        if (!each(key, field.value())) return false;
    }
    return true;
}

bool Reader::read(value json, QMap<QString, double> &daily)
{
    return fields(json, [&](std::string_view day, value seconds) {
        // Days come in their order, so each has its place at the end.
        return read(seconds, *daily.insert(daily.cend(), shared(day), 0));
    });
}

template <class Object, size_t count>
bool Reader::readObject(value json, Object &object, const Field<Object> (&known)[count])
{
    unsigned seen = 0;
    size_t next = 0; // keys usually come in their order
    const bool whole = fields(json, [&](std::string_view key, value content) {
        for (size_t tried = 0; tried < count; ++tried, next = (next + 1) % count) {
            if (known[next].key != key) continue;
            const Field<Object> &field = known[next];
            seen |= 1u << std::exchange(next, (next + 1) % count);
            return field.read(*this, content, object);
        }
        return readUnknown(key, content, object.unknown);
    });
    for (size_t i = 0; i < count; ++i) {
        if (known[i].required && !(seen & (1u << i))) return false;
    }
    return whole;
}

bool Reader::read(value json, GameSettings &settings)
{
    static constexpr Field<GameSettings> known[] = {
        {"resolutionScale", true, [](Reader &r, value v, GameSettings &s) { return r.read(v, s.resolutionScale); }},
        {"fps60", true, [](Reader &r, value v, GameSettings &s) { return r.read(v, s.fps60); }},
        {"widescreen", true, [](Reader &r, value v, GameSettings &s) { return r.read(v, s.widescreen); }},
        {"showFPS", true, [](Reader &r, value v, GameSettings &s) { return r.read(v, s.showFPS); }},
        {"fullScreen", false, [](Reader &r, value v, GameSettings &s) { return r.read(v, s.fullScreen); }},
        {"quality", false, [](Reader &r, value v, GameSettings &s) { return r.read(v, s.quality); }},
    };
    return readObject(json, settings, known);
}

bool Reader::read(value json, GameEntry &game)
{
    static constexpr Field<GameEntry> known[] = {
        {"id", true, [](Reader &r, value v, GameEntry &g) { return r.readID(v, g.id); }},
        {"title", true, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.title); }},
        {"consoleID", true, [](Reader &r, value v, GameEntry &g) { return r.readShared(v, g.consoleID); }},
        {"path", true, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.path); }},
        {"addedAt", true, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.addedAt); }},
        {"lastPlayed", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.lastPlayed); }},
        {"settings", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.settings); }},
        {"sourceFolder", false, [](Reader &r, value v, GameEntry &g) { return r.readShared(v, g.sourceFolder); }},
        {"playSeconds", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.playSeconds); }},
        {"sessionCount", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.sessionCount); }},
        {"lastSessionSeconds", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.lastSessionSeconds); }},
        {"daily", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.daily); }},
        {"favorite", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.favorite); }},
        {"status", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.status); }},
        {"stateSavedAt", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.stateSavedAt); }},
        {"statePath", false, [](Reader &r, value v, GameEntry &g) { return r.read(v, g.statePath); }},
    };
    return readObject(json, game, known);
}

/// Room for more games than there may be costs nothing until it is used. In large pages it costs less then, too: a
/// third of the time to read a large library goes into memory that is touched for the first time.
void reserve(QList<GameEntry> &games, qsizetype most)
{
    games.reserve(most);
#ifdef MADV_HUGEPAGE
    const quintptr page = quintptr(::sysconf(_SC_PAGESIZE));
    const quintptr start = (quintptr(games.constData()) + page - 1) & ~(page - 1);
    const quintptr end = quintptr(games.constData() + games.capacity()) & ~(page - 1);
    if (start < end) ::madvise(reinterpret_cast<void *>(start), end - start, MADV_HUGEPAGE);
#endif
}

bool Reader::read(const QByteArray &json, QList<GameEntry> &games)
{
    m_end = json.constData() + json.size();
    simdjson::ondemand::document document;
    simdjson::ondemand::array array;
    if (m_parser.iterate(json.constData(), size_t(json.size()), size_t(json.capacity())).get(document)) return false;
    if (document.get_array().get(array)) return false;
    reserve(games, json.size() / 200);
    for (auto element : array) {
        value content;
        if (element.get(content) || !read(content, games.emplaceBack())) return false;
    }
    // Nothing may come after the list: the file would lose it at the next save.
    return document.current_location().error() == simdjson::OUT_OF_BOUNDS;
}

/// Identity must be unique, and no game may be lost for it.
void giveNewIDsToRepeated(QList<GameEntry> &games)
{
    QSet<QString> taken;
    taken.reserve(games.size());
    for (qsizetype place = 0; place < games.size(); ++place) {
        const qsizetype before = taken.size();
        QString id = games[place].id;
        for (taken.insert(id); taken.size() == before; taken.insert(id))
            id = QUuid::createUuidV5(QUuid(id), QString::number(place)).toString(QUuid::WithoutBraces).toUpper();
        if (id != games[place].id) games[place].id = id;
    }
}

}

std::optional<QList<GameEntry>> decodeLibrary(QByteArray json)
{
    json.reserve(json.size() + libraryPadding);
    Reader reader;
    QList<GameEntry> games;
    if (!reader.read(json, games)) return {};
    if (reader.mayRepeat()) giveNewIDsToRepeated(games);
    return games;
}
