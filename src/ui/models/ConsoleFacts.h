#pragma once

#include "catalog/Console.h"
#include "platform/Places.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

class InstalledEmulators;
class LibraryStore;
class Translator;

/// The emulators that can play one console, each with its copies on this machine; one that is not installed has one row
/// of its own. Nothing until the first look for emulators is over.
class EmulatorCopiesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("part of a console's page")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    enum Role {
        Name = Qt::UserRole + 1,
        EmulatorID,
        Detail, ///< how it is installed, translated
        Path, ///< empty: not installed
        Installed,
        Spoken, ///< by screen readers
        InUse, ///< the copy that plays this console
        Website,
    };

    EmulatorCopiesModel(const InstalledEmulators &emulators, const Translator &translator, const Places &places,
                        QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    int count() const { return int(m_rows.size()); }
    void setConsole(const Console *console);

signals:
    void countChanged();

private:
    struct Row {
        QString emulatorID;
        QString name;
        QString detail; ///< in English
        QString path;
        QString website;
        bool inUse = false;
    };
    void refill();

    const InstalledEmulators &m_emulators;
    const Translator &m_translator;
    const Places m_places;
    const Console *m_console = nullptr;
    QList<Row> m_rows;
};

/// What a console's page says about it, translated. Empty texts are not shown.
class ConsoleFacts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(QString consoleID READ consoleID WRITE setConsoleID NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString maker READ maker NOTIFY changed)
    Q_PROPERTY(QString year READ year NOTIFY changed)
    Q_PROPERTY(QString gamesTitle READ gamesTitle NOTIFY changed)
    Q_PROPERTY(QStringList headline READ headline NOTIFY gamesChanged)
    Q_PROPERTY(QString gamesText READ gamesText NOTIFY gamesChanged)
    Q_PROPERTY(QString extensions READ extensions NOTIFY changed)
    Q_PROPERTY(bool takesGames READ takesGames NOTIFY changed)
    Q_PROPERTY(QString note READ note NOTIFY changed)
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusChanged)
    Q_PROPERTY(QString statusDot READ statusDot NOTIFY statusChanged)
    Q_PROPERTY(bool hasEmulators READ hasEmulators NOTIFY changed)
    Q_PROPERTY(QString emulatorHint READ emulatorHint NOTIFY statusChanged)
    Q_PROPERTY(QString controllerText READ controllerText NOTIFY statusChanged)
    Q_PROPERTY(EmulatorCopiesModel *emulators READ emulators CONSTANT)
public:
    ConsoleFacts(const LibraryStore &library, const InstalledEmulators &emulators, const Translator &translator,
                 const Places &places, QObject *parent = nullptr);

    QString consoleID() const { return m_console ? m_console->id : QString(); }
    void setConsoleID(const QString &id); ///< unknown: every text is empty
    QString name() const;
    QString maker() const;
    QString year() const;
    QString gamesTitle() const; ///< "Your PlayStation 2 games"
    QStringList headline() const; ///< maker, year, number of games, as far as they are known
    QString gamesText() const; ///< "8 games"
    QString extensions() const; ///< "iso, chd, cso"
    bool takesGames() const; ///< there is a way to play what is dropped
    QString note() const;
    QString statusText() const;
    QString statusDot() const; ///< colour role
    bool hasEmulators() const; ///< emulators play this console
    QString emulatorHint() const; ///< what is missing; empty when ready
    QString controllerText() const; ///< how the controller gets into the emulator that is used
    EmulatorCopiesModel *emulators() { return &m_copies; }

signals:
    void changed();
    void statusChanged();
    void gamesChanged();

private:
    const LibraryStore &m_library;
    const InstalledEmulators &m_emulators;
    const Translator &m_translator;
    const Host m_host;
    const Console *m_console = nullptr;
    EmulatorCopiesModel m_copies;
};
