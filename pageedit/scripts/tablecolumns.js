// Handles the columns of a table and their widths.

function columnsOf(table) {
    return [].slice.call(table.querySelectorAll('col')).filter(function(c) {
        return closestTag(c, tableTag) == table;
    });
}

// Adds, removes and moves columns, with their widths.
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

// Gives the first column after a cell, counted from 0.
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

// Gives the column that ends at a point of the view, its width, and the place of the table in the
// view.
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

// Sets the width of one column in its "col".
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
