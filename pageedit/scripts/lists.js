// Makes and changes lists and their items.

var itemTags = { li: true };

function itemOf(u) { return closestTag(u.element || u.parent, itemTags); }

function listOf(item) {
    return isList(item.parentNode) ? item.parentNode : null;
}

// Gives the items of the units, without those inside another of these items.
function topItems(units) {
    var items = [];
    units.forEach(function(u) {
        var item = itemOf(u);
        if (item && listOf(item) && items.indexOf(item) < 0)
            items.push(item);
    });
    return items.filter(function(item) {
        return !items.some(function(other) { return other != item && other.contains(item); });
    });
}

function listTypeOf(u) {
    var item = itemOf(u);
    return item && listOf(item) ? (tag(listOf(item)) == 'ol' ? 'ol' : 'ul') : '';
}

// Appends an item to a list, on its own line if the list is written in lines.
function appendItem(list, item, line) {
    var last = list.lastChild, end = isBlank(last) ? last : null;
    if (!end)
        insertLine(line, list);
    else if (line)
        list.insertBefore(makeText(line), end);
    list.insertBefore(item, end);
    if (!end)
        insertLine(line, list);
    if (end && isBlank(item.previousSibling) && isBlank(item.previousSibling.previousSibling))
        remove(item.previousSibling);
}

function lastList(item) {
    var n = item.lastChild;
    while (n && isNothing(n))
        n = n.previousSibling;
    return isList(n) ? n : null;
}

// Gives the list at the end of an item. Makes one if there is none.
function subList(item, name, line) {
    var list = lastList(item);
    if (list)
        return list;
    list = make(name);
    if (tag(item.lastChild) == 'br' && !isEmpty(item))
        remove(item.lastChild);
    insertLine(line, item);
    item.appendChild(list);
    insertLine(line, item);
    return list;
}

function takeOut(item) {
    var t = item.previousSibling;
    if (isBlank(t))
        remove(t);
    remove(item);
}

function indentItem(item) {
    var above = previousOf(item), line = lineAt(item), list = listOf(item);
    if (!above || tag(above) != 'li')
        return false;
    var below = subList(above, tag(list), line);
    takeOut(item);
    appendItem(below, item, line);
    return true;
}

// Makes the following items children of this one, so that they stay where they are on the screen.
function takeFollowers(item, list, line) {
    var follower = nextOf(item), next;
    for (; follower; follower = next) {
        next = nextOf(follower);
        var below = subList(item, tag(list), line);
        takeOut(follower);
        appendItem(below, follower, line);
    }
}

// Turns the content of an item that leaves its list into paragraphs.
function intoParagraphs(item, line) {
    if (!hasBlock(item)) {
        var p = rename(item, 'p');
        if (!p.firstChild)
            p.appendChild(make('br'));
        return;
    }
    var run = [];
    kids(item).concat([null]).forEach(function(n) {
        if (n && !isBlock(n)) {
            run.push(n);
            return;
        }
        while (run.length && isNothing(run[run.length - 1]))
            run.pop();
        while (run.length && isNothing(run[0]))
            run.shift();
        if (run.length) {
            wrap(run, make('p'));
            trimEnd(run[run.length - 1]);
            if (!isBlank(run[0].parentNode.nextSibling))
                insertLine(line, item, run[0].parentNode.nextSibling);
        }
        run = [];
    });
    if (isBlank(item.lastChild))
        remove(item.lastChild);
    unwrap(item);
}

function outdentItem(item) {
    var list = listOf(item), outer = list.parentNode, line = lineAt(item);
    if (tag(outer) == 'li' && listOf(outer)) {
        takeFollowers(item, list, line);
        takeOut(item);
        after(outer, item);
        insertLine(lineAt(outer), item.parentNode, item);
        if (isEmpty(list))
            removeLine(list);
        if (isBlank(outer.lastChild) && !hasBlock(outer))
            remove(outer.lastChild);
        if (!hasBlock(outer))
            trimEnd(outer.lastChild);
        return;
    }
    liftOut(item, list);
    if (!isList(outer))
        intoParagraphs(item, line);
}

function intoItem(u) {
    if (u.element && tag(u.element) != 'pre')
        return rename(u.element, 'li');
    if (u.element)
        return wrap([u.element], make('li'));
    return asElement(u, 'li');
}

function joinNeighbours(list) {
    var previous = previousOf(list), next = nextOf(list);
    if (next && tag(next) == tag(list))
        joinInto(next, list);
    if (previous && tag(previous) == tag(list))
        joinInto(list, previous);
}

function setListType(units, type) {
    var loose = units.filter(function(u) { return !listTypeOf(u); });
    units.forEach(function(u) {
        var list = listTypeOf(u) && listOf(itemOf(u));
        if (list && tag(list) != type)
            rename(list, type);
    });
    var items = loose.map(intoItem);
    groupsOf(items).forEach(function(group) { joinNeighbours(wrapLines(group, make(type))); });
}

commands.list = function(args) {
    var units = selectedUnits();
    keepSelection(function() {
        if (units.length && units.every(function(u) { return listTypeOf(u) == args.type; }))
            topItems(units).forEach(outdentItem);
        else
            setListType(units, args.type);
    });
};
