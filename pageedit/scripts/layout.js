// Aligns and indents paragraphs, and inserts blocks between them.

// Gives the element that carries the style of a unit: its own, or the cell or item that it fills.
function styledElement(u) {
    if (u.element)
        return u.element;
    if (isPlainBlock(u.parent) && !hasBlock(u.parent) && !u.parent.querySelector('br'))
        return u.parent;
    return asElement(u);
}

function computed(e, property) { return getComputedStyle(e).getPropertyValue(property); }

// Gives "left", "center", "right" or "justify".
function alignmentOf(e) {
    var value = computed(e, 'text-align').replace('-webkit-', '');
    if (/^(left|right|center|justify)$/.test(value))
        return value;
    return (computed(e, 'direction') == 'rtl') == (value == 'end') ? 'left' : 'right';
}

commands.align = function(args) {
    var units = selectedUnits();
    keepSelection(function() {
        units.forEach(function(u) {
            var e = styledElement(u);
            if (alignmentOf(e) == args.align)
                return;
            setAttribute(e, 'align', '');
            setStyle(e, 'text-align', '');
            if (alignmentOf(e) != args.align)
                setStyle(e, 'text-align', args.align);
        });
    });
};

function indentProperty(e) {
    return computed(e, 'direction') == 'rtl' ? 'margin-right' : 'margin-left';
}

function ownIndent(u) {
    var e = u.element;
    return e && parseFloat(e.style.getPropertyValue(indentProperty(e))) || 0;
}

// Indents by one step, which is twice the height of letters. A margin in pixels stays in pixels.
function indentParagraph(u, by) {
    var e = asElement(u), property = indentProperty(e);
    var m = /^([0-9.]+)px$/.exec(e.style.getPropertyValue(property));
    var unit = m ? 'px' : 'em', step = m ? 40 : 2;
    var now = m ? parseFloat(m[1]) : ownIndent(u);
    var value = Math.max(0, now + by * step);
    setStyle(e, property, value > 0 ? value + unit : '');
}

function outdentParagraph(u) {
    var quote = closestTag(u.parent, { blockquote: true });
    if (ownIndent(u) > 0)
        indentParagraph(u, -1);
    else if (quote && asElement(u).parentNode == quote)
        liftOut(u.element, quote);
}

commands.indent = function() {
    var units = selectedUnits();
    keepSelection(function() {
        var staying = [];
        topItems(units).forEach(function(item) {
            // An item stays if the one before it has to stay.
            if (staying.indexOf(previousOf(item)) >= 0 || !indentItem(item))
                staying.push(item);
        });
        units.forEach(function(u) {
            if (!itemOf(u))
                indentParagraph(u, 1);
        });
    });
};

commands.outdent = function() {
    var units = selectedUnits();
    keepSelection(function() {
        var loose = units.filter(function(u) { return !itemOf(u); });
        topItems(units).forEach(outdentItem);
        loose.forEach(outdentParagraph);
    });
};

// Inserts a block at the caret. A selection has to be deleted before. Returns the node after the
// block, or null if there is no caret.
function putBlockAtCaret(e) {
    var r = selectedRange(), u = selectedUnits()[0], n, behind, t;
    if (!r || !u)
        return null;
    n = r.startContainer;
    if (isText(n))
        n.parentNode.insertBefore(e, r.startOffset > 0 ? n.splitText(r.startOffset) : n);
    else
        n.insertBefore(e, n.childNodes[r.startOffset] || null);
    if (isText(e.previousSibling) && !e.previousSibling.data)
        remove(e.previousSibling);
    hoist(e);
    if (isAlone(e))
        ontoLine(e);
    [previousOf(e), nextOf(e)].forEach(function(br) {
        if (tag(br) == 'br')
            remove(br);
    });
    behind = nextOf(e);
    if (!behind || tag(behind) == tag(e)) {
        t = make('p');
        t.appendChild(make('br'));
        after(e, t);
        insertLine(lineAt(e), e.parentNode, t);
        behind = t;
    }
    return behind;
}

commands.rule = function() {
    var behind = putBlockAtCaret(make('hr'));
    if (isElement(behind))
        caretInto(behind);
    else if (behind)
        caretAt(behind, 0);
};
