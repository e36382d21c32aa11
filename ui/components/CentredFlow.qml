// Lines of items, each line in the middle.
import QtQuick

Item {
    id: flow

    property real spacing: 0

    // Puts the items in their places and tells how high that is.
    function arranged(): real {
        let y = 0
        for (const line of lines()) {
            let x = (width - lineWidth(line)) / 2
            for (const item of line) {
                item.x = Math.round(x)
                item.y = y
                x += item.width + spacing
            }
            y += Math.max(...line.map(item => item.height)) + spacing
        }
        return Math.max(0, y - spacing)
    }

    function lines(): var {
        const all = []
        for (const item of Array.from(children).filter(item => item.visible && item.width > 0)) {
            const line = all[all.length - 1]
            if (line && lineWidth([...line, item]) <= width)
                line.push(item)
            else
                all.push([item])
        }
        return all
    }

    function lineWidth(line: var): real {
        return line.reduce((sum, item) => sum + item.width + spacing, -spacing)
    }

    implicitHeight: arranged()
}
