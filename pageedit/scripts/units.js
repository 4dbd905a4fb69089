// The paragraphs that the selection touches. A unit is one paragraph: an element that is one, or a
// run of text that stands bare in a cell, an item, the body; then "element" is null. "parent" is the
// block around, "nodes" are the inline nodes of a bare run (none for an empty block).

// None while a field of a form has the keyboard: the selection told of is the place before it.
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

// The next node that does not stand in this one.
function nextBehind(n, top) {
    for (; n && n != top; n = n.parentNode)
        if (n.nextSibling)
            return n.nextSibling;
    return null;
}

// Where a place stands as a node: the one that follows it.
function nodeAt(container, offset) {
    return isElement(container) && container.childNodes[offset] || container;
}

// Text nodes and empty elements of the range, of which at least a character is in it; for a caret
// the one it stands in or before.
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
    // From the node at the start to the one behind the end.
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
        // The web view's intersectsNode() counts neighbours that are only touched.
        if (r.compareBoundaryPoints(Range.END_TO_START, probe) < 0)
            leaves.push(n);
    }
    return leaves;
}

// The topmost inline node around a leaf, or the leaf's block when it is one without content.
function inlineTop(leaf) {
    while (leaf.parentNode && !isBlock(leaf.parentNode))
        leaf = leaf.parentNode;
    return leaf;
}

// The run of inline siblings around a node; a line break belongs to the line that it ends.
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

// Blanks between blocks are no text. A block that may hold no text itself is no unit either.
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

// A run of bare text into a block. Line breaks at its ends have done their work; line ends of the
// source stay outside.
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

// A unit as an element of its own: bare text gets a paragraph around it. The line break that ended
// the line has done its work.
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
