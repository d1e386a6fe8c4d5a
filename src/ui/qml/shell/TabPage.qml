import QtQuick
import Velko

/// One tab's page: read and made when its tab is first shown, kept as it is afterwards.
FocusScope {
    id: root
    required property AppState app
    required property string name
    required property url page
    required property var parts ///< the properties that the page requires
    property bool covered: false ///< a page opened from it lies above
    readonly property bool current: app.tab === name
    signal folderWanted
    signal emulatorWanted(string emulatorID)
    signal filesWanted

    anchors.fill: parent
    visible: current && !covered
    enabled: visible
    focus: visible
    Component.onCompleted: if (root.current) loader.setSource(root.page, root.parts)
    onCurrentChanged: if (root.current && loader.status === Loader.Null) loader.setSource(root.page, root.parts)

    Loader {
        id: loader
        anchors.fill: parent
        focus: true
        onLoaded: (item as Item).focus = true
    }
    Connections {
        target: loader.item
        ignoreUnknownSignals: true
        function onFolderWanted() { root.folderWanted() }
        function onFilesWanted() { root.filesWanted() }
        function onEmulatorWanted(emulatorID) { root.emulatorWanted(emulatorID) }
    }
}
