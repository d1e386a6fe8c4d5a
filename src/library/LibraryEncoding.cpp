#include "library/LibraryFile.h"

#include <QDir>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace {

/// JSON text that grows at its end.
class Writer {
public:
    explicit Writer(qsizetype expected) { m_text.resize(expected); }

    void raw(std::string_view text)
    {
        char *end = room(qsizetype(text.size()));
        std::memcpy(end, text.data(), text.size());
        m_size += qsizetype(text.size());
    }
    void text(QStringView text);
    void number(double number);
    void number(qint64 number);
    QByteArray take()
    {
        m_text.truncate(m_size);
        return std::move(m_text);
    }

private:
    char *room(qsizetype bytes)
    {
        if (m_size + bytes > m_text.size()) m_text.resize(std::max(m_size + bytes, m_text.size() * 2));
        return m_text.data() + m_size;
    }

    QByteArray m_text;
    qsizetype m_size = 0;
};

char *escaped(char *to, char16_t c)
{
    static constexpr char digits[] = "0123456789abcdef";
    *to++ = '\\';
    switch (c) {
    case '"':
    case '\\':
        *to++ = char(c);
        return to;
    case '\n':
        *to++ = 'n';
        return to;
    case '\r':
        *to++ = 'r';
        return to;
    case '\t':
        *to++ = 't';
        return to;
    }
    for (const char part : {'u', '0', '0', digits[c >> 4], digits[c & 15]})
        *to++ = part;
    return to;
}

char *utf8(char *to, char32_t c)
{
    if (c < 0x800) {
        *to++ = char(0xC0 | (c >> 6));
    } else if (c < 0x10000) {
        *to++ = char(0xE0 | (c >> 12));
        *to++ = char(0x80 | ((c >> 6) & 0x3F));
    } else {
        *to++ = char(0xF0 | (c >> 18));
        *to++ = char(0x80 | ((c >> 12) & 0x3F));
        *to++ = char(0x80 | ((c >> 6) & 0x3F));
    }
    *to++ = char(0x80 | (c & 0x3F));
    return to;
}

void Writer::text(QStringView text)
{
    // One unit of UTF-16 becomes six bytes at most.
    char *const start = room(text.size() * 6 + 2);
    char *to = start;
    *to++ = '"';
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c < 0x20 || c == '"' || c == '\\') {
            to = escaped(to, c);
        } else if (c < 0x80) {
            *to++ = char(c);
        } else if (!QChar::isSurrogate(c)) {
            to = utf8(to, c);
        } else if (QChar::isHighSurrogate(c) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            to = utf8(to, QChar::surrogateToUcs4(c, text[++i].unicode()));
        } else {
            to = utf8(to, QChar::ReplacementCharacter);
        }
    }
    *to++ = '"';
    m_size += to - start;
}

/// The shortest form that reads back as the same number.
void Writer::number(double number)
{
    char *end = room(32);
    m_size += std::to_chars(end, end + 32, std::isfinite(number) ? number : 0.0).ptr - end;
}

void Writer::number(qint64 number)
{
    char *end = room(32);
    m_size += std::to_chars(end, end + 32, number).ptr - end;
}

void write(Writer &to, const QString &text)
{
    to.text(text);
}
void write(Writer &to, bool flag)
{
    to.raw(flag ? "true" : "false");
}
void write(Writer &to, double number)
{
    to.number(number);
}
void write(Writer &to, qint64 number)
{
    to.number(number);
}
void write(Writer &to, ReferenceDate date)
{
    to.number(date.seconds);
}
void write(Writer &to, GameStatus status)
{
    to.text(title(status));
}
void write(Writer &to, QualityPreset preset)
{
    to.text(name(preset));
}

void write(Writer &to, const QMap<QString, double> &daily)
{
    to.raw("{");
    const char *separator = "";
    for (auto day = daily.begin(); day != daily.end(); ++day) {
        to.raw(separator);
        to.text(day.key());
        to.raw(":");
        to.number(day.value());
        separator = ",";
    }
    to.raw("}");
}

void write(Writer &to, const UnknownKeys &keys)
{
    for (const auto &[key, json] : keys) {
        to.raw(",");
        to.text(key);
        to.raw(":");
        to.raw({json.constData(), size_t(json.size())});
    }
}

template <class T>
void writeField(Writer &to, std::string_view keyAndColon, const std::optional<T> &field);

void write(Writer &to, const GameSettings &settings)
{
    to.raw(R"({"resolutionScale":)");
    to.number(qint64(settings.resolutionScale));
    to.raw(R"(,"fps60":)");
    write(to, settings.fps60);
    to.raw(R"(,"widescreen":)");
    write(to, settings.widescreen);
    to.raw(R"(,"showFPS":)");
    write(to, settings.showFPS);
    writeField(to, R"(,"fullScreen":)", settings.fullScreen);
    writeField(to, R"(,"quality":)", settings.quality);
    write(to, settings.unknown);
    to.raw("}");
}

template <class T>
void writeField(Writer &to, std::string_view keyAndColon, const std::optional<T> &field)
{
    if (!field) return;
    to.raw(keyAndColon);
    write(to, *field);
}

void write(Writer &to, const GameEntry &game, const QString &velkoFolder)
{
    to.raw(R"({"id":)");
    to.text(game.id);
    to.raw(R"(,"title":)");
    to.text(game.title);
    to.raw(R"(,"consoleID":)");
    to.text(game.consoleID);
    to.raw(R"(,"path":)");
    to.text(velkoFolder.isEmpty() ? game.path : portablePath(game.path, velkoFolder));
    to.raw(R"(,"addedAt":)");
    write(to, game.addedAt);
    writeField(to, R"(,"lastPlayed":)", game.lastPlayed);
    writeField(to, R"(,"settings":)", game.settings);
    writeField(to, R"(,"sourceFolder":)", game.sourceFolder);
    writeField(to, R"(,"playSeconds":)", game.playSeconds);
    writeField(to, R"(,"sessionCount":)", game.sessionCount);
    writeField(to, R"(,"lastSessionSeconds":)", game.lastSessionSeconds);
    writeField(to, R"(,"daily":)", game.daily);
    writeField(to, R"(,"favorite":)", game.favorite);
    writeField(to, R"(,"status":)", game.status);
    writeField(to, R"(,"stateSavedAt":)", game.stateSavedAt);
    writeField(to, R"(,"statePath":)", game.statePath);
    write(to, game.unknown);
    to.raw("}");
}

}

QByteArray encodeLibrary(const QList<GameEntry> &games, const QString &velkoFolder)
{
    Writer to(games.size() * 512 + 16);
    to.raw("[");
    const char *separator = "";
    for (const GameEntry &game : games) {
        to.raw(separator);
        write(to, game, velkoFolder);
        separator = ",";
    }
    to.raw("]");
    return to.take();
}

QString portablePath(const QString &path, const QString &velkoFolder)
{
    const QString prefix = QDir::cleanPath(velkoFolder) + u'/';
    return path.startsWith(prefix) ? path.mid(prefix.size()) : path;
}
