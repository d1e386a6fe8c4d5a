#pragma once

#include "ui/shots/ShotGroupModel.h"

#include <QPointer>

class Workspace;

/// The screenshots as the window shows them: the shelves by game, the viewer with one game's pictures, and the question
/// before one is removed. Reads the folder when it becomes `active`. What it is given outlives it.
class ScreenshotGallery : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the screenshots")
    Q_PROPERTY(bool active MEMBER m_active WRITE setActive NOTIFY activeChanged)
    Q_PROPERTY(bool loaded READ loaded NOTIFY changed)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(ShotGroupModel *groups READ groups CONSTANT)
    Q_PROPERTY(bool viewing READ viewing NOTIFY viewChanged)
    Q_PROPERTY(ShotListModel *shots READ shots NOTIFY viewChanged)
    Q_PROPERTY(int index READ index WRITE setIndex NOTIFY viewChanged)
    Q_PROPERTY(QString title READ title NOTIFY viewChanged)
    Q_PROPERTY(QString dateText READ dateText NOTIFY viewChanged)
    Q_PROPERTY(QString source READ source NOTIFY viewChanged)
    Q_PROPERTY(bool asking READ asking NOTIFY askingChanged)
    Q_PROPERTY(QString askedSource READ askedSource NOTIFY askingChanged)
public:
    ScreenshotGallery(ScreenshotStore &store, Workspace &workspace, const Places &places, const QLocale &locale,
                      QObject *parent = nullptr);

    void setActive(bool active);
    bool loaded() const { return m_store.loaded(); }
    int count() const { return m_store.count(); }
    ShotGroupModel *groups() { return &m_groups; }

    bool viewing() const { return shots() != nullptr; }
    ShotListModel *shots() const; ///< of the viewer; null while it is closed
    int index() const { return m_index; } ///< of the picture in the viewer
    void setIndex(int index); ///< one that is not there is ignored
    QString title() const;
    QString dateText() const;
    QString source() const;
    Q_INVOKABLE void view(const QString &groupID, int index);
    Q_INVOKABLE void close();

    bool asking() const { return !m_asked.isEmpty(); } ///< whether a picture is to be removed
    QString askedSource() const;
    Q_INVOKABLE void ask(const QString &url);
    Q_INVOKABLE void askForShown(); ///< the picture in the viewer
    Q_INVOKABLE void answer(bool remove);
    Q_INVOKABLE void openFolder();

signals:
    void activeChanged();
    void changed();
    void viewChanged();
    void askingChanged();

private:
    void update();
    QString shown(ShotListModel::Role role) const;

    ScreenshotStore &m_store;
    Workspace &m_workspace;
    const QString m_folder;
    ShotGroupModel m_groups;
    bool m_active = false;
    QString m_viewed; ///< group in the viewer
    bool m_viewing = false;
    int m_index = 0;
    QString m_asked;
};
