#pragma once

#include "platform/Endpoints.h"

#include <QObject>
#include <qqmlregistration.h>

class Workspace;

/// Our own pages on the web, in the user's browser. What it is given outlives it.
class OwnPages : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the window")
    Q_PROPERTY(bool donation READ hasDonation CONSTANT)
    Q_PROPERTY(bool invitation READ hasInvitation CONSTANT)
public:
    OwnPages(Workspace &workspace, const Endpoints &endpoints) : m_workspace(workspace), m_endpoints(endpoints) { }

    bool hasDonation() const { return !m_endpoints.donation.isEmpty(); } ///< its address is set
    bool hasInvitation() const { return !m_endpoints.invitation.isEmpty(); }

    Q_INVOKABLE bool openDonation(); ///< false: there is no browser
    Q_INVOKABLE bool openInvitation();

private:
    Workspace &m_workspace;
    const Endpoints m_endpoints;
};
