// Arranges the rows and cells of a table. Those that stay are moved and not made again.

// Puts new elements into the places of the old ones. The line ends around the places stay.
function permute(olds, news) {
    var markers = olds.map(function(e) {
        var m = makeText('');
        before(e, m);
        return m;
    });
    news.forEach(function(e, i) { before(markers[i], e); });
    markers.forEach(remove);
}

// Gives the line of a row or cell. The first row of a body without tags stands on the line of the body.
function tableLineAt(e) {
    var p = e.parentNode;
    return (tag(p) == 'tbody' && !e.previousSibling && lineAt(p)) || lineAt(e);
}

// Replaces the children in the first list by those in the second one.
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
            takeLineOut(last);
            line = tableLineAt(last);
            after(last, e);
            insertLine(line, parent, e);
        } else if (ordered[0]) {
            line = tableLineAt(ordered[0]);
            before(ordered[0], e);
            insertLine(line, parent, ordered[0]);
        } else {
            parent.appendChild(e);
        }
    });
}

function makeCell(isHeader) { return make(isHeader ? 'th' : 'td'); }

// Makes the new cells of an old row. They are headers if the whole row is one.
function cellsFor(row, spec, cells) {
    var isHeader = isHeaderRow(row);
    return spec.cells.map(function(c) { return c.id >= 0 ? cells[c.id] : makeCell(isHeader); });
}

// Makes a new row. It has headers in the columns where the row beside it has them, but is no header
// row itself.
function makeRow(spec, like) {
    var row = make('tr'), head = tag(like.parentNode) == 'thead', plain = isHeaderRow(like) && !head;
    var line = like.cells[0] ? lineAt(like.cells[0]) : '';
    spec.cells.forEach(function(c, i) {
        insertLine(line, row);
        row.appendChild(makeCell(head || (!plain && tag(like.cells[i]) == 'th')));
    });
    if (line)
        insertLine(tableLineAt(like), row);
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

// "rows" are the new rows by the numbers of queries.table, with -1 for new ones. "into" is a cell
// that takes the content of the "merged" ones. "caret" is the row and the index of the caret's
// cell.
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
