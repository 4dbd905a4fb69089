// Inserts and deletes tables, and sets their header row.

function fillRow(parent, count, isHeader) {
    var row = make('tr');
    for (var i = 0; i < count; ++i)
        row.appendChild(makeCell(isHeader));
    parent.appendChild(row);
    insertLine('\n', parent);
}

// Inserts a table at the caret, with a header row. A selection has to be deleted before.
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

// Makes the first row a header of the table, or an ordinary row.
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
