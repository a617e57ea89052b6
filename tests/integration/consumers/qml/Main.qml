import QtQuick
import QtQuick.Window
import Tolvane

Window {
    width: 400
    height: 700
    visible: true
    Component.onCompleted: Tolvane.initialize("key")

    // The host's own type, although the module has a private one of the same name.
    IconButton {
        id: button
    }

    Timer {
        interval: 100
        running: true
        onTriggered: Tolvane.open()
    }
    Timer {
        interval: 10000
        running: true
        onTriggered: Qt.exit(1)
    }
    Connections {
        target: Tolvane

        function onIsOpenChanged() {
            if (Tolvane.isOpen)
                Tolvane.close()
            else
                Qt.exit(button.isHostType && Tolvane.version ? 0 : 1)
        }
    }
}
