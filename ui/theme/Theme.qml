// The design's tokens.
pragma Singleton
import QtQuick

QtObject {
    id: theme

    readonly property color paper: "#FCFBF8"
    readonly property color sidebar: "#F5F2EC"
    readonly property color card: "#FFFFFF"
    readonly property color sunken: "#F3F0E9"
    readonly property color hover: "#F7F4EE"
    readonly property color leftOut: "#F9F6F0"
    readonly property color hoverSidebar: "#ECE7DD"
    readonly property color line: "#E8E3DA"
    readonly property color lineStrong: "#D5CEC2"
    readonly property color cardHoverLine: "#C9BFAF"
    readonly property color box: "#8C8375"
    readonly property color ink: "#262119"
    readonly property color ink2: "#5B5347"
    readonly property color ink3: "#6F675A"
    readonly property color accent: "#17614F"
    readonly property color accentHover: "#125141"
    readonly property color accentPress: "#0E4235"
    readonly property color accentInk: "#FFFFFF"
    readonly property color accentPale: "#9CC7B8"
    readonly property color wash: "#E4F0EB"
    // What files may be dropped on.
    readonly property color washPale: "#EDF5F1"
    readonly property color honey: "#F6C65C"
    readonly property color honeyWash: "#FCEFC9"
    readonly property color honeyText: "#664708"
    readonly property color mark: "#FBE3A0"
    readonly property color warn: "#C4630E"
    readonly property color warnWash: "#FDEEDC"
    readonly property color warnLine: "#F0C48E"
    readonly property color warnText: "#8A3D05"
    readonly property color used: "#D3CABB"
    readonly property color usedText: "#40392E"
    readonly property color free: "#F6F3ED"
    readonly property color meterUsed: "#A99F8F"
    readonly property color meterTrack: "#DCD5C8"
    readonly property color track: "#E6E0D4"
    readonly property color skeleton: "#EDE8DE"
    readonly property color skeleton2: "#F3F0E9"
    readonly property color disabledFill: "#EDE9E0"
    readonly property color disabledLine: "#E0D9CC"
    readonly property color disabledText: "#6A6256"
    readonly property color dark: "#262119"
    readonly property color darkLine: "#544C40"
    readonly property color darkAccent: "#FBDD94"
    readonly property color darkInk: "#FFFFFF"
    readonly property color scrim: Qt.rgba(38 / 255, 33 / 255, 25 / 255, 0.36)

    readonly property string display: "Inter Display"
    readonly property TextStyle hero: TextStyle { size: 34; line: 40; weight: Font.DemiBold; spacing: -0.3; family: theme.display }
    readonly property TextStyle heroNarrow: TextStyle { size: 28; line: 36; weight: Font.DemiBold; spacing: -0.3; family: theme.display }
    readonly property TextStyle title: TextStyle { size: 26; line: 32; weight: Font.DemiBold; spacing: -0.3; family: theme.display }
    readonly property TextStyle total: TextStyle { size: 26; line: 32; weight: Font.DemiBold; family: theme.display }
    readonly property TextStyle emptyTitle: TextStyle { size: 22; line: 28; weight: Font.DemiBold; spacing: -0.1; family: theme.display }
    readonly property TextStyle sheetTitle: TextStyle { size: 20; line: 26; weight: Font.DemiBold; family: theme.display }
    readonly property TextStyle figure: TextStyle { size: 20; line: 24; weight: Font.DemiBold; family: theme.display }
    readonly property TextStyle figureNarrow: TextStyle { size: 18; line: 24; weight: Font.DemiBold; family: theme.display }
    readonly property TextStyle heading: TextStyle { size: 18; line: 24; weight: Font.DemiBold; spacing: -0.1; family: theme.display }
    readonly property TextStyle subhead: TextStyle { size: 15; line: 20; weight: Font.DemiBold }
    readonly property TextStyle lead: TextStyle { size: 15; line: 24 }
    readonly property TextStyle body: TextStyle { size: 14; line: 20 }
    readonly property TextStyle small: TextStyle { size: 13; line: 20 }
    readonly property TextStyle smallTight: TextStyle { size: 13; line: 18 }
    readonly property TextStyle caption: TextStyle { size: 12; line: 16 }
    readonly property TextStyle micro: TextStyle { size: 11; line: 16; weight: Font.DemiBold; spacing: 0.2 }
    // At the height of 40 of a file badge; its label scales with it.
    readonly property TextStyle badge: TextStyle { size: 10; line: 12; weight: Font.Bold; spacing: 0.2 }

    readonly property int radiusTag: 4
    readonly property int radiusCheck: 5
    readonly property int radiusButton: 8
    readonly property int radiusCard: 12
    readonly property int radiusSheet: 16
    readonly property int hairline: 1
    readonly property int strongLine: 2
    readonly property int ringGap: 2

    readonly property int space1: 4
    readonly property int space2: 8
    readonly property int space3: 12
    readonly property int space4: 16
    readonly property int space5: 20
    readonly property int space6: 24
    readonly property int space7: 28
    readonly property int space8: 40

    // What rich text says of the classes "marked" and, in it, "mark".
    function markStyle(look: TextStyle): string {
        return `<style>.marked { white-space: pre-wrap; line-height: ${look.line}px } .mark { background-color: ${mark}; color: ${ink}; font-weight: 600 }</style>`
    }

    // Set where the desktop asks for stillness.
    property bool reducedMotion: false
    readonly property int colourTime: reducedMotion ? 0 : 120
    readonly property int moveTime: reducedMotion ? 0 : 180
    readonly property int progressTime: reducedMotion ? 0 : 200
    readonly property int scrimTime: reducedMotion ? 0 : 150
    readonly property int sheetTime: reducedMotion ? 0 : 200
    readonly property int toastTime: reducedMotion ? 0 : 200
    readonly property int toastOutTime: reducedMotion ? 0 : 150
    readonly property int rowMoveTime: reducedMotion ? 0 : 200
    readonly property int turnTime: 1200
    readonly property int scanningCardTime: 900
    readonly property int tipDelay: 600
}
