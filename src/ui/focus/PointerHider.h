#pragma once

#include <QObject>
#include <QPoint>

/// Takes the mouse pointer away from all of Velko's windows until the mouse is used again.
class PointerHider : public QObject {
public:
    ~PointerHider() override;

    void hide();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void show();

    bool m_hidden = false;
    QPoint m_place; ///< where it rests
};
