import QtQuick

Item {
    readonly property bool isHostType: true
}
