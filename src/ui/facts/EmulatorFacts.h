#pragma once

#include "catalog/EmulatorDef.h"
#include "platform/Places.h"

#include <QObject>
#include <QVariantList>
#include <qqmlregistration.h>

class EmulatorChanges;
class EmulatorOpener;
class InstalledEmulators;
class Preferences;
class Translator;

/// What the set-up panel of one emulator says, in the user's words, and what the user can do there. Everything that it
/// is given outlives it.
class EmulatorFacts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the window")
    Q_PROPERTY(QString emulatorID READ emulatorID WRITE setEmulatorID NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QStringList steps READ steps NOTIFY changed)
    Q_PROPERTY(bool byHand READ byHand NOTIFY changed)
    Q_PROPERTY(bool configured READ configured WRITE setConfigured NOTIFY changed)
    Q_PROPERTY(QString stateText READ stateText NOTIFY changed)
    Q_PROPERTY(QString stateDot READ stateDot NOTIFY changed)
    Q_PROPERTY(bool installed READ installed NOTIFY changed)
    Q_PROPERTY(bool open READ open NOTIFY changed)
    Q_PROPERTY(QVariantList copies READ copies NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString systemFilesConsole READ systemFilesConsole NOTIFY changed)
    Q_PROPERTY(QVariantList edits READ edits NOTIFY changed)
    Q_PROPERTY(bool puttingBack READ puttingBack NOTIFY changed)
    Q_PROPERTY(QString putBackText READ putBackText NOTIFY changed)
public:
    EmulatorFacts(const InstalledEmulators &emulators, Preferences &preferences, EmulatorOpener &opener,
                  EmulatorChanges &changes, const Translator &translator, const Places &places,
                  QObject *parent = nullptr);

    QString emulatorID() const { return m_id; } ///< "nxnative" and "native": a game that is itself a program
    void setEmulatorID(const QString &id);

    QString name() const; ///< empty for a game that is itself a program
    QString title() const;
    QStringList steps() const; ///< numbered when they are to be done `byHand`
    bool byHand() const; ///< the user sets the controller up
    bool configured() const; ///< and has said that it works
    void setConfigured(bool configured);
    QString stateText() const; ///< how far the controller is, in a word
    QString stateDot() const;
    bool installed() const;
    bool open() const; ///< it runs on its own, opened from here
    QVariantList copies() const; ///< text, path, shown path and chosen, of each copy on this machine
    QString problem() const; ///< why it could not be opened
    QString systemFilesConsole() const; ///< the console whose page takes its system files; empty: none, or several
    QVariantList edits() const; ///< what Velko changed in its files: key, value, old value and place of each
    bool puttingBack() const; ///< as soon as it has ended
    QString putBackText() const; ///< what came of it, or what it waits for

    Q_INVOKABLE void openAlone();
    Q_INVOKABLE void putBack(); ///< everything; the second call takes it back while it waits
    Q_INVOKABLE void choose(const QString &path); ///< the copy that is to be used from now on

signals:
    void changed();

private:
    const EmulatorDef *def() const { return emulatorWithID(m_id, m_places.host); }

    const InstalledEmulators &m_emulators;
    Preferences &m_preferences;
    EmulatorOpener &m_opener;
    EmulatorChanges &m_changes;
    const Translator &m_translator;
    const Places m_places;
    QString m_id;
    QString m_problem;
    QString m_putBack; ///< what came of it
};
