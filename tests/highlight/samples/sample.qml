// A list that can be filtered.
pragma Singleton
import QtQuick
import QtQuick.Controls 2.15 as Controls
import "logic.js" as Logic

ApplicationWindow {
    id: root
    visible: true
    width: 640; height: 0x1E0
    title: qsTr("Words with \"quotes\"")

    required property string filter
    readonly property real ratio: 1.5e0
    property alias text: field.text
    default property list<Item> parts
    signal chosen(string word, int index)

    enum Mode { Plain, Fancy }
    component Badge: Rectangle { radius: 4 }

    /* The model
       comes first. */
    ListModel {
        id: words
        ListElement { word: "alpha"; size: 5 }
    }

    Controls.TextField {
        id: field
        anchors { left: parent.left; margins: -2 }
        onTextChanged: root.filter = text
        Keys.onReturnPressed: (event) => { event.accepted = true }
        Behavior on opacity { NumberAnimation { duration: 200 } }
    }

    ListView {
        anchors.fill: parent
        model: words
        delegate: ItemDelegate {
            text: model.word
            onClicked: root.chosen(text, index)
        }
    }

    function count(list) {
        let n = 0;
        for (const w of list ?? [])
            if (w !== null && w.length > 3) n += 1;
        return `${n} words`;
    }
    Component.onCompleted: console.log(count(["one", "three"]))
}
