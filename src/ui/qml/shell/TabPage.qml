import QtQuick
import Velko

/// One tab's page: made when its tab is first shown, kept as it is afterwards.
Loader {
    id: root
    required property AppState app
    required property string name
    required property Component page
    property bool covered: false ///< a page opened from it lies above
    readonly property bool current: app.tab === name

    anchors.fill: parent
    visible: current && !covered
    enabled: visible
    focus: visible
    sourceComponent: page
    active: current || status === Loader.Ready
}
