import QtQuick

Item {
    readonly property bool isTheHosts: true
}
