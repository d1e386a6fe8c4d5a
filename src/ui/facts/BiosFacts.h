#pragma once

#include "catalog/Console.h"
#include "platform/Places.h"

#include <QObject>
#include <QUrl>
#include <QVariantList>
#include <optional>
#include <qqmlregistration.h>

class BiosFiles;
class InstalledEmulators;
class Translator;
struct BiosState;

/// The card of one console's system files, in the user's words. Everything that it is given outlives it.
class BiosFacts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the window")
    Q_PROPERTY(QString consoleID READ consoleID WRITE setConsoleID NOTIFY changed)
    Q_PROPERTY(QString label READ label NOTIFY changed)
    Q_PROPERTY(QString hint READ hint NOTIFY changed)
    Q_PROPERTY(QString need READ need NOTIFY changed)
    Q_PROPERTY(QString place READ place NOTIFY changed)
    Q_PROPERTY(QString stateText READ stateText NOTIFY changed)
    Q_PROPERTY(QString stateDot READ stateDot NOTIFY changed)
    Q_PROPERTY(QStringList remarks READ remarks NOTIFY changed)
    Q_PROPERTY(QVariantList reports READ reports NOTIFY changed)
    Q_PROPERTY(bool busy READ busy NOTIFY changed)
public:
    BiosFacts(BiosFiles &files, const InstalledEmulators &emulators, const Translator &translator, const Places &places,
              QObject *parent = nullptr);

    QString consoleID() const { return m_console ? m_console->id : QString(); }
    void setConsoleID(const QString &id); ///< looks for the files

    QString label() const; ///< empty: no system files are needed
    QString hint() const; ///< their names
    QString need() const; ///< "Required" or "Recommended"
    QString place() const; ///< where they belong
    QString stateText() const; ///< whether they are there; empty until that is known
    QString stateDot() const;
    QStringList remarks() const; ///< what the files are that were found
    QVariantList reports() const; ///< of what was dropped last: text, detail, and whether it was good
    bool busy() const; ///< files are being copied

    Q_INVOKABLE void install(const QStringList &files);
    Q_INVOKABLE bool drop(const QList<QUrl> &addresses); ///< false: none of them lies on this computer

signals:
    void changed();

private:
    std::optional<BiosState> state() const;

    BiosFiles &m_files;
    const Translator &m_translator;
    const Places m_places;
    const Console *m_console = nullptr; ///< one that needs system files
};
