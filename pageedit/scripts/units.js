// Finds the paragraphs that the selection touches. A unit is one paragraph: an element, or a run of
// bare text in a cell, an item or the body. A bare run has null as its "element". "parent" is the
// block around it, and "nodes" are its inline nodes, none for an empty block.

// Null while a field of a form has the keyboard, because the selection is then the place before the
// field.
function selectedRange() {
    if (/^(input|textarea|select)$/i.test(document.activeElement && document.activeElement.nodeName))
        return null;
    var s = getSelection(), r = s.rangeCount ? s.getRangeAt(0) : null, b = body();
    if (!b || !r || !b.contains(r.startContainer) || !b.contains(r.endContainer))
        return null;
    return r;
}

function isLeaf(n) {
    return isText(n) || (isElement(n) && !n.firstChild);
}

function nextNode(n, top) { return n.firstChild || nextBehind(n, top); }

// Gives the next node that is not inside this one.
function nextBehind(n, top) {
    for (; n && n != top; n = n.parentNode)
        if (n.nextSibling)
            return n.nextSibling;
    return null;
}

// Gives the node that follows a place.
function nodeAt(container, offset) {
    return isElement(container) && container.childNodes[offset] || container;
}

// Gives the text nodes and empty elements with at least one character in the range. For a caret,
// gives the one that contains or follows it.
function leavesOf(r, most) {
    var leaves = [], n, top = r.commonAncestorContainer;
    if (r.collapsed) {
        n = nodeAt(r.startContainer, r.startOffset);
        while (n.firstChild)
            n = n.firstChild;
        return [n];
    }
    if (isText(top))
        return [top];
    // Walks from the node at the start to the one after the end.
    n = isText(r.startContainer) ? r.startContainer
                                 : r.startContainer.childNodes[r.startOffset]
            || nextBehind(r.startContainer, top);
    var probe = inDocument('createRange');
    for (; n && !(leaves.length > most); n = nextNode(n, top)) {
        if (!isLeaf(n))
            continue;
        if (isText(n))
            probe.selectNodeContents(n);
        else
            probe.selectNode(n);
        if (r.compareBoundaryPoints(Range.START_TO_END, probe) <= 0)
            break;
        // The web view's intersectsNode() also counts neighbours that the range only touches.
        if (r.compareBoundaryPoints(Range.END_TO_START, probe) < 0)
            leaves.push(n);
    }
    return leaves;
}

// Gives the topmost inline node around a leaf, or the leaf itself if it is an empty block.
function inlineTop(leaf) {
    while (leaf.parentNode && !isBlock(leaf.parentNode))
        leaf = leaf.parentNode;
    return leaf;
}

// Gives the run of inline siblings around a node. A line break belongs to the line that it ends.
function runAround(n) {
    var nodes = [n], k;
    for (k = n.previousSibling; k && !isBlock(k) && tag(k) != 'br'; k = k.previousSibling)
        nodes.unshift(k);
    if (tag(n) != 'br')
        for (k = n.nextSibling; k && !isBlock(k); k = k.nextSibling) {
            nodes.push(k);
            if (tag(k) == 'br')
                break;
        }
    while (nodes.length > 1 && isNothing(nodes[0]))
        nodes.shift();
    while (nodes.length > 1 && isNothing(nodes[nodes.length - 1]))
        nodes.pop();
    return nodes;
}

function unitOf(leaf) {
    if (isBlock(leaf))
        return isParagraph(leaf) ? { element: leaf, parent: leaf.parentNode, nodes: kids(leaf) }
                                 : { element: null, parent: leaf, nodes: [] };
    var top = inlineTop(leaf), block = top.parentNode;
    if (isParagraph(block))
        return { element: block, parent: block.parentNode, nodes: kids(block) };
    if (tag(block) == 'div' && !hasBlock(block))
        return { element: block, parent: block.parentNode, nodes: kids(block) };
    return { element: null, parent: block, nodes: runAround(top) };
}

// Whether a leaf is part of a unit. Blanks between blocks are not, nor is a block that may hold no
// text.
function isUnitLeaf(n, count) {
    var t = tag(n), parent = isBlock(n) ? n : inlineTop(n).parentNode;
    if (t == 'hr' || t == 'col' || /^(script|style|title|template|option|select|textarea)$/.test(t)
        || /^(script|style|template|option|select|textarea)$/.test(tag(n.parentNode)))
        return false;
    if (/^(ul|ol|menu|dir|dl|table|thead|tbody|tfoot|tr|colgroup|html)$/.test(tag(parent)))
        return false;
    if (isBlank(n) && tag(closest(n, isBlock)) != 'pre') {
        var run = runAround(inlineTop(n));
        if (run.every(function(k) { return isBlank(k) || isComment(k); }))
            return count == 1 && !hasBlock(parent);
    }
    return true;
}

function isSameUnit(a, b) {
    return a.element ? a.element == b.element
                     : !b.element && a.parent == b.parent && a.nodes[0] == b.nodes[0];
}

// Gives the units that are selected. If most is given, only the first leaves count.
function selectedUnits(most) {
    var r = selectedRange(), units = [];
    if (!r)
        return units;
    var leaves = leavesOf(r, most);
    leaves.forEach(function(leaf) {
        var last = units[units.length - 1];
        if (!isUnitLeaf(leaf, leaves.length) || (last && last.element && last.element.contains(leaf)))
            return;
        var u = unitOf(leaf);
        if (!last || !isSameUnit(last, u))
            units.push(u);
    });
    return units;
}

// Moves a run of bare text into a block. Drops the line breaks at its ends, and leaves the line
// ends of the source outside.
function wrapRun(nodes, e) {
    var t = nodes[0], m = isText(t) && /^[ \t]*\r?\n[ \t]*/.exec(t.data);
    if (m && m[0].length < t.data.length)
        nodes[0] = cut(t, m[0].length);
    wrap(nodes, e);
    var br = previousOf(e);
    if (tag(br) == 'br')
        remove(br);
    if (tag(e.lastChild) == 'br' && !isEmpty(e))
        remove(e.lastChild);
    trimEnd(e.lastChild);
}

// Gives the element of a unit. Bare text gets a paragraph around it, and loses the line break that
// ended it.
function asElement(u, name) {
    if (u.element)
        return u.element;
    var e = make(name || 'p');
    if (u.nodes.every(isNothing)) {
        u.parent.insertBefore(e, u.nodes[0] || null);
        e.appendChild(make('br'));
        ontoLine(e);
        held.forEach(function(h) {
            if (h.node == u.parent || u.nodes.indexOf(h.node) >= 0 || u.nodes.indexOf(h.next) >= 0
                || u.nodes.indexOf(h.last) >= 0) {
                h.next = h.last = null;
                h.node = e;
                h.offset = 0;
            }
        });
    } else {
        wrapRun(u.nodes, e);
    }
    u.element = e;
    u.nodes = kids(e);
    return e;
}
