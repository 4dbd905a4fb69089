// The selection while a command moves nodes about: the nodes stay the same, so a place within text
// stays true; a place between nodes is held by the node that follows.

function keepSelection(change) {
    var s = getSelection(), place = selectionNow();
    if (!place) {
        change();
        return;
    }
    function held(node, offset) {
        if (isElement(node) && node.childNodes[offset] && !isBlock(node.childNodes[offset]))
            return { next: node.childNodes[offset] };
        if (isElement(node) && offset > 0 && !isBlock(node.childNodes[offset - 1]))
            return { last: node.childNodes[offset - 1] };
        return { node: node, offset: offset };
    }
    function index(n) { return [].indexOf.call(n.parentNode.childNodes, n); }
    function place1(h) {
        var n = h.next || h.last || h.node;
        if (!body().contains(n))
            return null;
        if (h.next)
            return [n.parentNode, index(n)];
        if (h.last)
            return [n.parentNode, index(n) + 1];
        return [n, Math.min(h.offset, isText(n) ? n.data.length : n.childNodes.length)];
    }
    var a = held(place[0], place[1]), f = held(place[2], place[3]);
    change();
    var from = place1(a), to = place1(f);
    if (from && to)
        select(from.concat(to));
    else if (from || to)
        s.collapse((from || to)[0], (from || to)[1]);
}

function caretInto(e) {
    var n = e;
    while (n.firstChild && tag(n.firstChild) != 'br')
        n = n.firstChild;
    getSelection().collapse(n, 0);
}
