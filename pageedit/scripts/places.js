// Keeps the selection while a command moves nodes. A place within text stays valid, because nodes
// stay the same. A place between nodes is kept by the node beside it.

var held = []; // Both ends of the selection while keepSelection() works.

function indexOf(n) { return [].indexOf.call(n.parentNode.childNodes, n); }

function hold(node, offset) {
    var next = isElement(node) && node.childNodes[offset];
    var last = isElement(node) && offset > 0 && node.childNodes[offset - 1];
    if (next && !isBlock(next))
        return { next: next };
    if (last && !isBlock(last))
        return { last: last };
    return { node: node, offset: offset };
}

// Gives the present place of a kept one. Null if its node is gone.
function placeOf(h) {
    var n = h.next || h.last || h.node;
    if (!body().contains(n))
        return null;
    if (h.next)
        return [n.parentNode, indexOf(n)];
    if (h.last)
        return [n.parentNode, indexOf(n) + 1];
    return [n, Math.min(h.offset, isText(n) ? n.data.length : n.childNodes.length)];
}

function keepSelection(change) {
    var s = getSelection(), r = s.rangeCount ? s.getRangeAt(0) : null, from, to;
    held = r ? [hold(r.startContainer, r.startOffset), hold(r.endContainer, r.endOffset)] : [];
    change();
    from = r && placeOf(held[0]);
    to = r && placeOf(held[1]);
    held = [];
    if (from && to)
        select(from.concat(to));
    else if (from || to)
        select((from || to).concat(from || to));
}

// Cuts a text in two and returns the second part.
function cut(text, at) {
    var second = text.splitText(at);
    held.forEach(function(h) {
        if (h.node == text && (h.offset > at || (h.offset == at && h == held[0]))) {
            h.node = second;
            h.offset -= at;
        }
    });
    return second;
}

// Sets the text of a node. changed() gives the new text for the part before a kept place.
function setData(text, data, changed) {
    held.forEach(function(h) {
        if (h.node == text)
            h.offset = changed(text.data.slice(0, h.offset)).length;
    });
    text.data = data;
}

function caretAt(node, offset) { select([node, offset, node, offset]); }

// Moves the caret into the first text of an element.
function caretInto(e) {
    var n = e;
    while (n.firstChild && tag(n.firstChild) != 'br')
        n = n.firstChild;
    caretAt(n, 0);
}

function caretBehind(n) { caretAt(n.parentNode, indexOf(n) + 1); }

// Puts the first block of an empty page after the line end that the page has there.
function ontoLine(e) {
    var t = e.nextSibling, m = isBlank(t) && !e.previousSibling && /^[ \t]*\r?\n/.exec(t.data);
    if (!m)
        return;
    insertLine(m[0], e.parentNode, e);
    if (/\n/.test(t.data.slice(m[0].length)))
        t.deleteData(0, m[0].length);
}

// Inserts an inline element at the caret. In an empty page it begins a paragraph.
function insertAtCaret(r, e) {
    var n = r.startContainer, br, t;
    if (isText(n))
        before(r.startOffset > 0 ? n.splitText(r.startOffset) : n, e);
    else
        n.insertBefore(e, n.childNodes[r.startOffset] || null);
    [e.previousSibling, e.nextSibling].forEach(function(k) {
        if (isText(k) && !k.data)
            remove(k);
    });
    br = e.nextSibling;
    if (tag(br) == 'br' && !br.nextSibling && !e.previousSibling)
        remove(br);
    t = e.previousSibling;
    // The web view ends text with a non-breaking space so that it is seen.
    if (isText(t) && /[^ \u00a0]\u00a0$/.test(t.data))
        t.replaceData(t.data.length - 1, 1, ' ');
    if (e.parentNode == body() && isAlone(e))
        ontoLine(wrap([e], make('p')));
}
