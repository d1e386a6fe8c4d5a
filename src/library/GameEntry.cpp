#include "library/GameEntry.h"

#include "base/DayKey.h"

#include <QUuid>
#include <array>

QString newGameID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

/// The digit in upper case; 0 for everything that is none.
static constexpr auto hexDigits = [] {
    std::array<char, 256> digits{};
    for (const char digit : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'})
        digits[size_t(digit)] = digit;
    for (const char digit : {'a', 'b', 'c', 'd', 'e', 'f'})
        digits[size_t(digit)] = char(digit - 'a' + 'A');
    return digits;
}();

std::optional<QString> gameID(QLatin1String text)
{
    if (text.size() != 36) return {};
    QString id(36, Qt::Uninitialized);
    QChar *to = id.data();
    bool valid = true;
    for (int i = 0; i < 36; ++i) {
        const char c = text.data()[i];
        const bool dash = i == 8 || i == 13 || i == 18 || i == 23;
        const char written = dash ? char(c == '-' ? c : 0) : hexDigits[uchar(c)];
        valid = valid && written;
        to[i] = QLatin1Char(written);
    }
    return valid ? std::optional(std::move(id)) : std::nullopt;
}

std::optional<QString> gameID(const QString &text)
{
    return gameID(QLatin1String(text.toLatin1()));
}

void addPlayTime(GameEntry &game, double seconds, const QDateTime &moment)
{
    if (!(seconds > 0)) return;
    game.playSeconds = game.playSeconds.value_or(0) + seconds;
    if (!game.daily) game.daily.emplace();
    (*game.daily)[dayKey(moment)] += seconds;
}
