#include "base/SearchForm.h"

static bool isPlainAscii(const QString &text)
{
    for (const QChar c : text) {
        if (c.unicode() > 127) return false;
    }
    return true;
}

QString searchForm(const QString &text)
{
    // Most titles are ASCII, and a library of 10,000 of them is folded at start-up.
    const QString folded = isPlainAscii(text)
        ? text.toLower()
        : text.normalized(QString::NormalizationForm_KD).toCaseFolded().normalized(QString::NormalizationForm_KD);
    QString result;
    result.reserve(folded.size());
    bool blank = false;
    const auto append = [&](QStringView letter) {
        if (blank && !result.isEmpty()) result += u' ';
        blank = false;
        result += letter;
    };
    for (qsizetype i = 0; i < folded.size(); ++i) {
        const bool pair = folded[i].isHighSurrogate() && i + 1 < folded.size() && folded[i + 1].isLowSurrogate();
        const char32_t c = pair ? QChar::surrogateToUcs4(folded[i], folded[i + 1]) : folded[i].unicode();
        const qsizetype units = pair ? 2 : 1;
        if (QChar::isLetterOrNumber(c))
            append(QStringView(folded).mid(i, units));
        else if (!QChar::isMark(c))
            blank = true;
        i += units - 1;
    }
    return result;
}
