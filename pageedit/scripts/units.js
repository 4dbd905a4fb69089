// The paragraphs that the selection touches. A unit is one paragraph: an element that is one, or a
// run of text that stands bare in a cell, an item, the body; then "element" is null. "parent" is the
// block around, "nodes" are the inline nodes of a bare run (none for an empty block).

function selectedRange() {
    var s = getSelection(), r = s.rangeCount ? s.getRangeAt(0) : null, b = body();
    if (!b || !r || !b.contains(r.startContainer) || !b.contains(r.endContainer))
        return null;
    return r;
}

function isLeaf(n) {
    return isText(n) || (isElement(n) && !n.firstChild);
}

function nextNode(n, top) {
    if (n.firstChild)
        return n.firstChild;
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
function leavesOf(r) {
    var leaves = [], n, top = r.commonAncestorContainer;
    if (r.collapsed) {
        n = nodeAt(r.startContainer, r.startOffset);
        while (n.firstChild)
            n = n.firstChild;
        return [n];
    }
    if (isText(top))
        return [top];
    for (n = top.firstChild; n; n = nextNode(n, top)) {
        var outside = !r.intersectsNode(n) || (n == r.endContainer && r.endOffset == 0)
            || (isText(n) && n == r.startContainer && r.startOffset == n.data.length);
        if (isLeaf(n) && !outside)
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
    function isNothing(n) { return isBlank(n) || isComment(n); }
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

function selectedUnits() {
    var r = selectedRange(), units = [];
    if (!r)
        return units;
    var leaves = leavesOf(r);
    leaves.forEach(function(leaf) {
        if (!isUnitLeaf(leaf, leaves.length))
            return;
        var u = unitOf(leaf);
        var known = units.some(function(k) {
            return u.element ? k.element == u.element
                             : !k.element && k.parent == u.parent && k.nodes[0] == u.nodes[0];
        });
        if (!known)
            units.push(u);
    });
    return units;
}

// A unit as an element of its own: bare text gets a paragraph around it. The line break that ended
// the line has done its work.
function asElement(u, name) {
    if (u.element)
        return u.element;
    var e = make(name || 'p'), last;
    if (!u.nodes.length) {
        u.parent.appendChild(e);
        e.appendChild(make('br'));
        if (getSelection().anchorNode == u.parent)
            getSelection().collapse(e, 0);
    } else {
        wrap(u.nodes, e);
        last = e.lastChild;
        if (tag(last) == 'br' && e.childNodes.length > 1)
            remove(last);
    }
    u.element = e;
    u.nodes = kids(e);
    return e;
}
