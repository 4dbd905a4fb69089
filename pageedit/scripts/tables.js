// Reads tables and moves the caret in them. The program decides by numbers which cells there are.

var cellTags = nameSet('td th');
var tableTag = nameSet('table');

function selectedTable() {
    var r = selectedRange();
    return r && closestTag(r.commonAncestorContainer, tableTag);
}

function rowsOf(table) { return [].slice.call(table.rows); }
function cellsOf(row) { return [].slice.call(row.cells); }
function allCells(table) { return [].concat.apply([], rowsOf(table).map(cellsOf)); }

// Gives the cell of this table that contains a node.
function cellAround(n, table) {
    var cell = closestTag(n, cellTags);
    while (cell && closestTag(cell.parentNode, tableTag) != table)
        cell = closestTag(cell.parentNode, cellTags);
    return cell;
}

function isHeaderRow(row) {
    var cells = row ? cellsOf(row) : [];
    return cells.length > 0 && cells.every(function(c) { return tag(c) == 'th'; });
}

function selectedCells(table) {
    var r = selectedRange(), cells = [];
    leavesOf(r).concat(r.collapsed ? [r.startContainer] : []).forEach(function(n) {
        var cell = cellAround(n, table);
        if (cell && cells.indexOf(cell) < 0)
            cells.push(cell);
    });
    return cells;
}

// Gives rows and cells by numbers, in the order of the table.
queries.table = function() {
    var table = selectedTable(), sections = [], cells;
    if (!table)
        return { present: false };
    cells = allCells(table);
    return {
        present: true,
        header: isHeaderRow(table.rows[0]),
        selected: selectedCells(table).map(function(c) { return cells.indexOf(c); }),
        rows: rowsOf(table).map(function(row, i) {
            if (sections.indexOf(row.parentNode) < 0)
                sections.push(row.parentNode);
            return {
                id: i, group: sections.indexOf(row.parentNode), head: tag(row.parentNode) == 'thead',
                cells: cellsOf(row).map(function(c) {
                    return { id: cells.indexOf(c), columns: c.colSpan,
                             rows: c.getAttribute('rowspan') === '0' ? 0 : c.rowSpan };
                })
            };
        })
    };
};

// Goes to the next or previous cell and selects its content. Changes nothing at the last one.
queries.nextCell = function(args) {
    var table = selectedTable(), r = selectedRange(), cells, at, cell;
    if (!table)
        return { inside: false };
    cells = allCells(table);
    at = cells.indexOf(cellAround(args.back ? r.startContainer : r.endContainer, table));
    cell = at < 0 ? null : cells[at + (args.back ? -1 : 1)];
    if (cell && isEmpty(cell))
        caretInto(cell);
    else if (cell)
        select([cell, 0, cell, cell.childNodes.length]);
    return { inside: at >= 0, moved: !!cell };
};

// Moves the caret to the first cell of its row.
queries.rowStart = function() {
    var table = selectedTable(), cell = table && cellAround(selectedRange().startContainer, table);
    if (cell)
        caretInto(cell.parentNode.cells[0]);
    return {};
};
