// Tables. Which cells there are to be is decided elsewhere, by numbers; here the elements follow.

var cellTags = nameSet('td th');
var tableTag = nameSet('table');

function selectedTable() {
    var r = selectedRange();
    return r && closestTag(r.commonAncestorContainer, tableTag);
}

function rowsOf(table) { return [].slice.call(table.rows); }
function cellsOf(row) { return [].slice.call(row.cells); }
function allCells(table) { return [].concat.apply([], rowsOf(table).map(cellsOf)); }

// The cell of this table that a node stands in.
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

// Rows and cells by their numbers, in the order of the table.
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

// The places stay with their line ends; other elements come into them.
function permute(olds, news) {
    var markers = olds.map(function(e) {
        var m = makeText('');
        before(e, m);
        return m;
    });
    news.forEach(function(e, i) { before(markers[i], e); });
    markers.forEach(remove);
}

// Makes the children of a parent that are in the first list those of the second one.
function putChildren(parent, olds, news) {
    var staying = olds.filter(function(e) { return news.indexOf(e) >= 0; });
    var ordered = news.filter(function(e) { return olds.indexOf(e) >= 0; });
    olds.forEach(function(e) {
        if (news.indexOf(e) < 0)
            removeLine(e);
    });
    if (staying.some(function(e, i) { return e != ordered[i]; }))
        permute(staying, ordered);
    news.forEach(function(e, i) {
        var last = news[i - 1], line;
        if (olds.indexOf(e) >= 0)
            return;
        if (last) {
            line = lineAt(last);
            after(last, e);
            insertLine(line, parent, e);
        } else if (ordered[0]) {
            line = lineAt(ordered[0]);
            before(ordered[0], e);
            insertLine(line, parent, ordered[0]);
        } else {
            parent.appendChild(e);
        }
    });
}

function makeCell(isHeader) { return make(isHeader ? 'th' : 'td'); }

// A new cell of an old row: a header where the whole row is one.
function cellsFor(row, spec, cells) {
    var isHeader = isHeaderRow(row);
    return spec.cells.map(function(c) { return c.id >= 0 ? cells[c.id] : makeCell(isHeader); });
}

// A new row has headers where the row beside it has them, but is no header row of a body.
function makeRow(spec, like) {
    var row = make('tr'), head = tag(like.parentNode) == 'thead', plain = isHeaderRow(like) && !head;
    var line = like.cells[0] ? lineAt(like.cells[0]) : '';
    spec.cells.forEach(function(c, i) {
        insertLine(line, row);
        row.appendChild(makeCell(head || (!plain && tag(like.cells[i]) == 'th')));
    });
    if (line)
        insertLine(lineAt(like), row);
    return row;
}

function setSpan(cell, name, count) {
    if (cell.getAttribute(name) != count && (count > 1 || cell.hasAttribute(name)))
        setAttribute(cell, name, count > 1 ? String(count) : '');
}

function moveContent(from, to) {
    if (isEmpty(from))
        return;
    if (isEmpty(to))
        kids(to).forEach(remove);
    else if (!hasBlock(to) && !hasBlock(from))
        to.appendChild(make('br'));
    moveAll(kids(from), to);
}

// The widths of columns go along with them.
function layoutColumns(table, change) {
    var cols = columnsOf(table), news = cols.slice();
    if (!cols.length || !change || cols.length != change.count
        || cols.some(function(c) { return c.span > 1 || c.parentNode != cols[0].parentNode; }))
        return;
    if (change.insert >= 0)
        news.splice(change.insert, 0, make('col'));
    else if (change.remove >= 0)
        news.splice(change.remove, change.size);
    else
        news.splice(change.to, 0, news.splice(change.from, 1)[0]);
    putChildren(cols[0].parentNode, cols, news);
}

// rows: as they are to be, by the numbers of queries.table, -1 for new ones; into, merged: a cell
// and those whose content it takes; caret: row and place in it of the cell for the caret.
commands.layoutTable = function(args) {
    var table = selectedTable(), rows = rowsOf(table), cells = allCells(table), sections = [], made;
    rows.forEach(function(row) {
        if (sections.indexOf(row.parentNode) < 0)
            sections.push(row.parentNode);
    });
    keepSelection(function() {
        (args.merged || []).forEach(function(id) { moveContent(cells[id], cells[args.into]); });
        made = args.rows.map(function(spec, i) {
            var near = args.rows[i - 1] && args.rows[i - 1].group == spec.group ? args.rows[i - 1]
                                                                               : args.rows[i + 1];
            return spec.id >= 0 ? rows[spec.id] : makeRow(spec, rows[near.id]);
        });
        sections.forEach(function(section, group) {
            putChildren(section, rows.filter(function(r) { return r.parentNode == section; }),
                        made.filter(function(r, i) { return args.rows[i].group == group; }));
            if (!section.rows || (!section.rows.length && section != table))
                removeLine(section);
        });
        args.rows.forEach(function(spec, i) {
            if (spec.id >= 0)
                putChildren(made[i], cellsOf(made[i]), cellsFor(made[i], spec, cells));
            spec.cells.forEach(function(c, j) {
                setSpan(made[i].cells[j], 'colspan', c.columns);
                setSpan(made[i].cells[j], 'rowspan', c.rows);
            });
        });
        layoutColumns(table, args.columns);
    });
    if (args.caret && made[args.caret[0]])
        caretInto(made[args.caret[0]].cells[args.caret[1]]);
};

// The first row as a header of the table, or as one like the others.
commands.headerRow = function() {
    var table = selectedTable(), row = table && table.rows[0], section = row && row.parentNode, on;
    if (!row)
        return;
    on = !isHeaderRow(row);
    keepSelection(function() {
        cellsOf(row).forEach(function(c) { rename(c, on ? 'th' : 'td'); });
        if (on && tag(section) == 'tbody' && section.rows.length > 1
            && cellsOf(row).every(function(c) { return c.rowSpan == 1; }))
            moveToHead(row, section);
        else if (!on && tag(section) == 'thead')
            moveToBody(row, section, table);
    });
};

function moveToHead(row, body) {
    var line = lineAt(body), within = lineAt(row), head = make('thead');
    removeLine(row);
    before(body, head);
    insertLine(line, body.parentNode, body);
    insertLine(within, head);
    head.appendChild(row);
    insertLine(within, head);
}

function moveToBody(row, head, table) {
    var body = table.tBodies[0], next = body && body.rows[0];
    if (!next) {
        rename(head, 'tbody');
        return;
    }
    removeLine(row);
    before(next, row);
    insertLine(lineAt(row), body, next);
    if (!head.rows.length) {
        if (isBlank(head.nextSibling))
            remove(head.nextSibling);
        remove(head);
    }
}

function fillRow(parent, count, isHeader) {
    var row = make('tr');
    for (var i = 0; i < count; ++i)
        row.appendChild(makeCell(isHeader));
    parent.appendChild(row);
    insertLine('\n', parent);
}

// At the caret; a selection has to be deleted before. The first row is a header.
commands.insertTable = function(args) {
    var table = make('table'), head = make('thead'), tbody = make('tbody');
    table.setAttribute('border', '1');
    [head, tbody].forEach(function(section) {
        insertLine('\n', table);
        table.appendChild(section);
        insertLine('\n', section);
    });
    insertLine('\n', table);
    fillRow(head, args.columns, true);
    for (var i = 1; i < args.rows; ++i)
        fillRow(tbody, args.columns, false);
    if (args.rows < 2)
        removeLine(tbody);
    if (putBlockAtCaret(table))
        caretInto(table.rows[0].cells[0]);
};

commands.deleteTable = function() {
    var table = selectedTable(), near = table && (nextOf(table) || previousOf(table)), p;
    if (!table)
        return;
    if (!near) {
        p = near = emptyParagraph();
        before(table, p);
    }
    removeLine(table);
    if (isElement(near))
        caretInto(near);
    else
        caretAt(near, 0);
};

// To the neighbouring cell; its content is selected. In the last one nothing is changed.
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

// The caret to the first cell of its row.
queries.rowStart = function() {
    var table = selectedTable(), cell = table && cellAround(selectedRange().startContainer, table);
    if (cell)
        caretInto(cell.parentNode.cells[0]);
    return {};
};

// The first column behind a cell, counted from 0.
function columnBehind(cell, table) {
    var taken = [], found = -1; // Rows that each column is taken for, by cells from above.
    rowsOf(table).forEach(function(row) {
        var column = 0, here = {};
        cellsOf(row).forEach(function(c) {
            while (taken[column] > 0)
                ++column;
            for (var i = 0; i < c.colSpan; ++i, ++column)
                here[column] = c.rowSpan;
            if (c == cell)
                found = column;
        });
        Object.keys(here).forEach(function(n) { taken[n] = here[n]; });
        taken = taken.map(function(n) { return n > 0 ? n - 1 : 0; });
    });
    return found;
}

var edgeWidth = 3; // Pixels on each side of an edge.

// The column that ends at a point of the view, its width, and where the table is seen.
queries.columnEdge = function(args) {
    var e = inDocument('elementFromPoint', args.x - edgeWidth, args.y);
    var cell = e && closestTag(e, cellTags), table = cell && closestTag(cell, tableTag), box, around;
    if (!table)
        return { present: false };
    box = cell.getBoundingClientRect();
    around = table.getBoundingClientRect();
    if (Math.abs(args.x - box.right) > edgeWidth || cell.colSpan > 1)
        return { present: false };
    return { present: true, table: all('table').indexOf(table), width: box.width,
             column: columnBehind(cell, table) - 1, top: around.top, bottom: around.bottom };
};

function columnsOf(table) {
    return [].slice.call(table.querySelectorAll('col')).filter(function(c) {
        return closestTag(c, tableTag) == table;
    });
}

// In a "col"; the others stay as they are.
commands.columnWidth = function(args) {
    var table = all('table')[args.table], cols = columnsOf(table), group, first, i;
    if (cols.some(function(c) { return c.span > 1; }))
        return;
    group = cols.length ? cols[0].parentNode : null;
    if (!group) {
        group = make('colgroup');
        first = table.tHead || table.tBodies[0] || table.firstChild;
        before(first, group);
        insertLine(lineAt(group), table, first);
    }
    for (i = cols.length; i <= args.column; ++i)
        group.appendChild(cols[i] = make('col'));
    setAttribute(cols[args.column], 'width', '');
    setStyle(cols[args.column], 'width', args.width + 'px');
};
