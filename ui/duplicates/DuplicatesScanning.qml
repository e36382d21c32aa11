// The copies before they have been found.
pragma ComponentBehavior: Bound
import QtQuick
import Nookwise

Item {
    id: scanning

    required property Frame frame
    required property ScanModel scan

    Column {
        x: scanning.frame.margin
        y: Theme.space4
        width: scanning.frame.column
        spacing: Theme.space4

        ScanCard {
            width: parent.width
            scan: scanning.scan
            step: "Looking for copies…"
        }
        Repeater {
            model: scanning.frame.narrow ? [2, 2] : [3, 2]

            Card {
                id: group

                required property int modelData

                width: scanning.frame.column
                height: 152

                Skeleton {
                    x: Theme.space4
                    y: Theme.space5
                    width: 220
                    height: 14
                }
                Row {
                    id: tiles

                    x: Theme.space4
                    y: 53
                    width: parent.width - 2 * Theme.space4
                    spacing: 10

                    Repeater {
                        model: group.modelData

                        Card {
                            width: Math.floor((tiles.width - (group.modelData - 1) * tiles.spacing) / group.modelData)
                            height: 82

                            Skeleton {
                                x: 14
                                anchors.verticalCenter: parent.verticalCenter
                                width: 56
                                height: 56
                                radius: Theme.radiusButton
                            }
                            Skeleton {
                                x: 82
                                y: 26
                                width: Math.min(120, parent.width - x - Theme.space3)
                                height: 11
                            }
                            Skeleton {
                                x: 82
                                y: 46
                                width: Math.min(84, parent.width - x - Theme.space3)
                                height: 10
                                color: Theme.skeleton2
                            }
                        }
                    }
                }
            }
        }
    }
}
