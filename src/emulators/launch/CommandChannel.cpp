#include "emulators/launch/CommandChannel.h"

#include "base/IniText.h"

#include <QCryptographicHash>
#include <QtEndian>

using namespace Qt::StringLiterals;

static QByteArray hashOf(const QString &gamePath)
{
    return QCryptographicHash::hash(gamePath.toUtf8(), QCryptographicHash::Sha256);
}

quint16 retroArchPort(const QString &gamePath)
{
    // Above what servers use, below what the system hands out.
    return quint16(20000 + qFromBigEndian<quint32>(hashOf(gamePath).constData()) % 10000);
}

QString xemuSocket(const QString &gamePath, const QString &runtimeFolder, const QString &flatpakID)
{
    const QString folder = flatpakID.isEmpty() ? u"/velko"_s : u"/app/"_s + flatpakID;
    return runtimeFolder + folder + u"/xemu-"_s + QString::fromLatin1(hashOf(gamePath).first(6).toHex()) + u".sock"_s;
}

QString pcsx2Socket(const QByteArray &settings, const QString &runtimeFolder)
{
    constexpr int usual = 28011;
    const int slot = iniValues(settings, u"EmuCore"_s, u"PINESlot"_s).value(0).toInt();
    const QString name = runtimeFolder + u"/pcsx2.sock"_s;
    return slot <= 0 || slot == usual ? name : name + u'.' + QString::number(slot);
}
