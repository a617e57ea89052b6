// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Samples
import Tolvane.Private

Item {
    NavigationData {
        id: navigation

        onPathChanged: testCase.actionsAtChange = testCase.actionsAtChange.concat(Samples.actions())
    }

    MessageData {
        id: messages
    }

    SignalSpy {
        id: pathSpy

        target: navigation
        signalName: "pathChanged"
    }

    SignalSpy {
        id: selectionSpy

        target: messages
        signalName: "selectedAttachmentChanged"
    }

    TestCase {
        id: testCase

        name: "Navigation"

        property var actionsAtChange: []

        function init() {
            navigation.path = []
            Samples.actions()
            actionsAtChange = []
            pathSpy.clear()
            selectionSpy.clear()
        }

        function test_stepsAreReportedBeforeThePathChanges_data() {
            return [
                {tag: "ticket", to: Destination.ticket(Samples.preview("t7", "hi")),
                 kind: "ticket", ticketId: "t7", imageUrl: "",
                 action: "navigate_to_ticket chat_list t7"},
                {tag: "image", to: Destination.imageViewer("https://cdn.example/a b.png"),
                 kind: "imageViewer", ticketId: "", imageUrl: "https://cdn.example/a b.png",
                 action: "navigate_to_image_viewer ticket  https://cdn.example/a%20b.png"},
                {tag: "new ticket", to: Destination.newTicket(), kind: "newTicket", ticketId: "",
                 imageUrl: "", action: "navigate_to_new_ticket chat_list"},
            ]
        }

        function test_stepsAreReportedBeforeThePathChanges(data) {
            verify(navigation.isEmpty)
            navigation.navigate(data.to)
            compare(actionsAtChange, [data.action])
            verify(!navigation.isEmpty)
            compare(navigation.path.length, 1)
            const top = navigation.path[0]
            compare([top.kind, top.ticketId, String(top.imageUrl)],
                    [data.kind, data.ticketId, data.imageUrl])
            navigation.navigate(data.to)
            compare(navigation.path.length, 2) // An equal destination on top does not matter.
            navigation.goBack()
            compare(navigation.path.length, 1)
            compare(pathSpy.count, 3)
        }

        function test_anEqualWriteChangesNothing() {
            navigation.goBack()
            navigation.path = []
            compare(pathSpy.count, 0)
            const path = [Destination.ticket(Samples.preview("t", "one"))]
            navigation.path = path
            navigation.path = [Destination.ticket(Samples.preview("t", "one"))]
            compare(pathSpy.count, 1)
            navigation.path = [Destination.ticket(Samples.preview("t", "another"))]
            compare(pathSpy.count, 2)
        }

        function test_selection() {
            messages.selectedAttachment = "https://cdn.example/a.png"
            messages.selectedAttachment = "https://cdn.example/a.png"
            compare(selectionSpy.count, 1)
            messages.selectedAttachment = ""
            compare(selectionSpy.count, 2)
        }
    }
}
