#include "ui/OwnPages.h"

#include "platform/Workspace.h"

bool OwnPages::openDonation()
{
    return m_workspace.openAddress(m_endpoints.donation);
}

bool OwnPages::openInvitation()
{
    return m_workspace.openAddress(m_endpoints.invitation);
}
