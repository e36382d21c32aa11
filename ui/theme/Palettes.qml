// The colours of piles, shelves and folders, and of the labels on file badges.
pragma Singleton
import QtQuick

QtObject {
    id: palettes

    readonly property PilePalette forgotten: PilePalette {
        badge: "#B0741A"
        text: "#70480A"
        wash: "#FBF3E2"
        back: "#D79A35"
        frontTop: "#F8D48A"
        frontBottom: "#EFB955"
        deep: "#6E460B"
        card: "#FFFFFF"
        secondCard: "#FFF6E2"
    }
    readonly property PilePalette installers: PilePalette {
        badge: "#BE5336"
        text: "#86331A"
        wash: "#FAEBE5"
        back: "#C4593B"
        frontTop: "#F3B39C"
        frontBottom: "#E78F70"
        deep: "#652712"
        card: "#FFFFFF"
        secondCard: "#FFF1EB"
    }
    readonly property PilePalette screenshots: PilePalette {
        badge: "#2F74BE"
        text: "#1D4F86"
        wash: "#E8F1FA"
        back: "#4A87C8"
        frontTop: "#AECDF0"
        frontBottom: "#83B1E4"
        deep: "#1A416D"
        card: "#FFFFFF"
        secondCard: "#EEF5FC"
    }
    readonly property PilePalette large: PilePalette {
        badge: "#7852B4"
        text: "#523488"
        wash: "#F0EBF8"
        back: "#8562BD"
        frontTop: "#CDBBEC"
        frontBottom: "#AF96DD"
        deep: "#42296B"
        card: "#FFFFFF"
        secondCard: "#F5F0FC"
    }
    readonly property PilePalette duplicates: PilePalette {
        badge: "#0F8080"
        text: "#0B5759"
        wash: "#E3F2F1"
        back: "#2A9391"
        frontTop: "#A0DAD4"
        frontBottom: "#6DC0B9"
        deep: "#0B4B4D"
        card: "#FFFFFF"
        secondCard: "#EAF7F6"
    }
    readonly property PilePalette pictures: PilePalette {
        badge: "#C24475"
        text: "#86254D"
        wash: "#FAEAF1"
        back: "#CB5886"
        frontTop: "#F5BCD2"
        frontBottom: "#E892B4"
        deep: "#731E40"
        card: "#FFFFFF"
        secondCard: "#FDF0F5"
    }
    readonly property PilePalette clips: PilePalette {
        badge: "#4D59C7"
        text: "#343D97"
        wash: "#ECEDFA"
        back: "#5F6AD0"
        frontTop: "#BFC4F3"
        frontBottom: "#979FE8"
        deep: "#2A3176"
        card: "#FFFFFF"
        secondCard: "#F1F2FD"
    }
    readonly property PilePalette audio: PilePalette {
        badge: "#BF6414"
        text: "#7D3F07"
        wash: "#FBEEE0"
        back: "#D07A2B"
        frontTop: "#F7C596"
        frontBottom: "#EFA564"
        deep: "#6E3705"
        card: "#FFFFFF"
        secondCard: "#FFF4EA"
    }
    readonly property PilePalette docs: PilePalette {
        badge: "#4A8337"
        text: "#2F5A21"
        wash: "#ECF4E8"
        back: "#5C9648"
        frontTop: "#BDDDAF"
        frontBottom: "#94C482"
        deep: "#294F1C"
        card: "#FFFFFF"
        secondCard: "#F2F8EF"
    }
    readonly property PilePalette bundles: PilePalette {
        badge: "#8A6A43"
        text: "#5B4426"
        wash: "#F4EEE5"
        back: "#9B7A50"
        frontTop: "#DFC8A6"
        frontBottom: "#C8A97D"
        deep: "#533C20"
        card: "#FFFFFF"
        secondCard: "#FAF5EE"
    }
    readonly property PilePalette scanned: PilePalette {
        badge: "#8A6A43"
        text: "#5B4426"
        wash: "#F4EEE5"
        back: "#B58F5D"
        frontTop: "#EBD5B0"
        frontBottom: "#D9BB8C"
        deep: "#5B4426"
        card: "#FFFFFF"
        secondCard: "#FBF7F0"
    }
    readonly property PilePalette ghost: PilePalette {
        badge: "#A49A8A"
        text: "#6F675A"
        wash: "#F3F0E9"
        back: "#D8D0C2"
        frontTop: "#EDE8DD"
        frontBottom: "#E2DBCD"
        deep: "#8C8375"
        card: "#FFFFFF"
        secondCard: "#FBF9F4"
    }

    readonly property var byName: ({
        "forgotten": palettes.forgotten,
        "installers": palettes.installers,
        "screenshots": palettes.screenshots,
        "large": palettes.large,
        "duplicates": palettes.duplicates,
        "pictures": palettes.pictures,
        "clips": palettes.clips,
        "audio": palettes.audio,
        "docs": palettes.docs,
        "bundles": palettes.bundles,
        "scanned": palettes.scanned,
        "ghost": palettes.ghost
    })

    // The dark labels on the pale fills of file badges.
    readonly property var kindLabels: ({
        "pdf": "#982621",
        "image": "#863253",
        "clip": "#3F448B",
        "audio": "#904F16",
        "archive": "#664E2D",
        "installer": "#833E2A",
        "sheet": "#187452",
        "doc": "#275087",
        "slides": "#895B0D",
        "rtf": "#49505F",
        "code": "#1D5A63",
        "app": "#187452",
        "other": "#626061"
    })

    // What was done to files: the ground and the ink of its icon.
    readonly property var changes: ({
        "trash": { wash: "#F3F0E9", text: "#5B5347" },
        "move": { wash: "#E4EDF9", text: "#275087" },
        "copy": { wash: "#E2EFF1", text: "#1D5A63" },
        "rename": { wash: "#FCEFC9", text: "#664708" }
    })

    function of(name: string): PilePalette {
        return byName[name] ?? ghost
    }

    function change(kind: string): var {
        return changes[kind] ?? changes["trash"]
    }

    function kindLabel(group: string): color {
        return kindLabels[group] ?? kindLabels["other"]
    }
}
