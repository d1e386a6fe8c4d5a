#include "library/LibraryFile.h"

#include <QBuffer>
#include <QDir>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace {

/// JSON text on its way to a file, piece by piece: a text of all games would cost more memory, and time for it.
class Writer {
public:
    explicit Writer(QIODevice &device) : m_device(device) { m_piece.resize(2 * pieceSize); }

    void raw(std::string_view text)
    {
        std::memcpy(room(qsizetype(text.size())), text.data(), text.size());
        m_size += qsizetype(text.size());
    }
    void text(QStringView text);
    void number(double number);
    void number(qint64 number);

    void passOn() ///< what is written so far may go to the file
    {
        if (m_size >= pieceSize) flush();
    }
    bool finish() ///< answers whether the file took all
    {
        flush();
        return m_whole;
    }

private:
    static constexpr qsizetype pieceSize = 128 * 1024;

    char *room(qsizetype bytes)
    {
        if (m_size + bytes > m_piece.size()) m_piece.resize(std::max(m_size + bytes, m_piece.size() * 2));
        return m_piece.data() + m_size;
    }
    void flush()
    {
        m_whole = m_whole && m_device.write(m_piece.constData(), m_size) == m_size;
        m_size = 0;
    }

    QIODevice &m_device;
    QByteArray m_piece;
    qsizetype m_size = 0;
    bool m_whole = true;
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

char *escapedText(char *to, QStringView text)
{
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
    return to;
}

/// Whether every character is written as it is, in one byte. Without an early end, so that the compiler looks at many
/// characters at a time.
bool isPlain(QStringView text)
{
    bool plain = true;
    for (const QChar c : text)
        plain &= c >= u' ' && c < u'\x7F' && c != u'"' && c != u'\\';
    return plain;
}

void Writer::text(QStringView text)
{
    // One unit of UTF-16 becomes six bytes at most.
    char *const start = room(text.size() * 6 + 2);
    char *to = start;
    *to++ = '"';
    if (isPlain(text)) {
        for (const QChar c : text)
            *to++ = char(c.unicode());
    } else {
        to = escapedText(to, text);
    }
    *to++ = '"';
    m_size += to - start;
}

/// The shortest form that reads back as the same number.
void Writer::number(double number)
{
    char *start = room(32);
    char *end = start;
    // Nearly all are whole milliseconds, and written fast as such. 15 digits always read back.
    const double thousandths = std::round(number * 1000);
    if (std::abs(thousandths) < 1e15 && thousandths / 1000 == number) {
        qint64 left = qint64(std::abs(thousandths));
        if (thousandths < 0) *end++ = '-';
        end = std::to_chars(end, start + 32, left / 1000).ptr;
        left %= 1000;
        if (left) *end++ = '.';
        for (int digit = 100; left; left %= digit, digit /= 10)
            *end++ = char('0' + left / digit);
    } else {
        end = std::to_chars(start, start + 32, std::isfinite(number) ? number : 0.0).ptr;
    }
    m_size += end - start;
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

bool writeLibrary(QIODevice &file, const QList<GameEntry> &games, const QString &velkoFolder)
{
    Writer to(file);
    to.raw("[");
    const char *separator = "";
    for (const GameEntry &game : games) {
        to.raw(separator);
        write(to, game, velkoFolder);
        to.passOn();
        separator = ",";
    }
    to.raw("]");
    return to.finish();
}

QByteArray encodeLibrary(const QList<GameEntry> &games)
{
    QBuffer buffer;
    buffer.open(QBuffer::WriteOnly);
    writeLibrary(buffer, games);
    return buffer.data();
}

QString portablePath(const QString &path, const QString &velkoFolder)
{
    const QString prefix = QDir::cleanPath(velkoFolder) + u'/';
    return path.startsWith(prefix) ? path.mid(prefix.size()) : path;
}
