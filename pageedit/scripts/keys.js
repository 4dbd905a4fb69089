// Handles keys in lists, headings, quotations and preformatted text. If a command changes nothing,
// the web view gets the key.

// Whether the caret stands at the end of its unit. A last line end does not count.
function isAtEnd(r, u) {
    var rest = inDocument('createRange');
    rest.selectNodeContents(u.element || u.parent);
    rest.setStart(r.startContainer, r.startOffset);
    return rest.toString().replace(/[\r\n]$/, '') == '' && !rest.cloneContents().querySelector('img');
}

function emptyParagraph() {
    var p = make('p');
    p.appendChild(make('br'));
    return p;
}

function paragraphBehind(e) {
    var p = emptyParagraph(), line = lineAt(e);
    after(e, p);
    insertLine(line, e.parentNode, p);
    caretAt(p, 0);
}

// The elements in which people write paragraphs. Cells and items may hold bare text instead.
var sectionTags = nameSet('body div section article main header footer aside blockquote');

// Gives the blocks before and after a caret between blocks, where the web view would type bare
// text. One of them may be missing. Null for any other place.
function gapAt(r) {
    var n = r.startContainer, at = r.startOffset, inText = isText(n), last, next;
    if (!r.collapsed || (inText && !isBlank(n)))
        return null;
    if (inText || tag(n) == 'table') { // A caret beside a table counts as within it.
        at = indexOf(n) + (inText || at > 0 ? 1 : 0);
        n = n.parentNode;
    }
    last = n.childNodes[at - 1] || null;
    next = n.childNodes[at] || null;
    if (isNothing(last))
        last = previousOf(last);
    if (isNothing(next))
        next = nextOf(next);
    if (!sectionTags[tag(n)] || (!last && !next) || (last && !isBlock(last)) || (next && !isBlock(next)))
        return null;
    return { last: last, next: next };
}

function paragraphInto(gap) {
    var p, line;
    if (gap.last) {
        paragraphBehind(gap.last);
        return;
    }
    p = emptyParagraph();
    line = lineAt(gap.next);
    before(gap.next, p);
    insertLine(line, p.parentNode, gap.next);
    caretAt(p, 0);
}

// Gives the last child that is neither blank nor a comment.
function lastShown(e) { return isNothing(e.lastChild) ? previousOf(e.lastChild) : e.lastChild; }

// Makes a place for the caret in a half without text, inside the formats that the text had. In the
// second half, blanks stay after the caret.
function keepOpen(half, isSecond) {
    while (isBlock(lastShown(half)))
        half = lastShown(half);
    var e = half;
    if (!isEmpty(half) || half.querySelector('br'))
        return;
    while (lastShown(e))
        e = lastShown(e);
    e.insertBefore(make('br'), isSecond ? e.firstChild : null);
}

function elementsBetween(n, block) {
    var list = [];
    for (n = n.parentNode; n != block; n = n.parentNode)
        list.push(n);
    return list;
}

// Removes empty formats and links from a half with text. An empty half keeps them for keepOpen().
function dropEmpty(half, elements) {
    if (isEmpty(half))
        return;
    elements.forEach(function(e) {
        if (!e.firstChild && (isFormat(e) || isLink(e)))
            remove(e);
    });
}

// Cuts a block in two at the caret. The second half gets its own line.
function splitAtCaret(r, block) {
    takeLineOut(block);
    var n = r.startContainer, line = lineAt(block), mark = makeText(''), second, cut, added;
    if (isText(n))
        before(r.startOffset > 0 ? n.splitText(r.startOffset) : n, mark);
    else
        n.insertBefore(mark, n.childNodes[r.startOffset] || null);
    cut = elementsBetween(mark, block);
    second = splitDeep(mark, block);
    added = elementsBetween(mark, second);
    insertLine(line, second.parentNode, second);
    [block, second].forEach(function(half) {
        textsIn(half).forEach(function(t) {
            if (!t.data)
                remove(t);
        });
        dropEmpty(half, half == second ? added : cut);
        keepOpen(half, half == second);
    });
    caretInto(second);
}

// Gives the item that a paragraph fills. Keys treat it like an item with bare text.
function itemFilledBy(u) {
    var item = itemOf(u), fills = u.element ? u.element.parentNode == item && isAlone(u.element)
                                            : u.parent == item;
    return item && listOf(item) && fills ? item : null;
}

function takesText(e) { return !!e && tag(e) != 'pre'; }

commands.enter = function() {
    var r = selectedRange(), u = r && r.collapsed ? selectedUnits()[0] : null;
    var atEnd = !!u && isAtEnd(r, u), item = u && itemFilledBy(u), quote, text;
    if (!u)
        return;
    if (item && isEmpty(u.element || item)) {
        keepSelection(function() { outdentItem(item); });
    } else if (atEnd && u.element && /^h[1-6]$/.test(tag(u.element)) && !isEmpty(u.element)) {
        paragraphBehind(u.element);
    } else if (u.element && isEmpty(u.element) && tag(u.parent) == 'blockquote') {
        quote = u.parent;
        keepSelection(function() { liftOut(u.element, quote); });
    } else if (atEnd && tag(u.element) == 'pre' && /\n\n?$/.test(u.element.textContent)) {
        text = textsIn(u.element).pop();
        text.data = text.data.replace(/\n+$/, '');
        paragraphBehind(u.element);
    } else if (item && tag(u.element) != 'pre') {
        splitAtCaret(r, item);
    } else if (takesText(u.element)) {
        splitAtCaret(r, u.element);
    }
};

queries.selected = function() {
    var r = selectedRange();
    return { selected: !!r && !r.collapsed };
};

queries.keys = function() {
    var u = selectedUnits(1)[0];
    var r = selectedRange();
    return { gap: !!r && !!gapAt(r), empty: !!r && !kids(body()).some(function(n) { return !isNothing(n); }),
             item: !!u && !!listTypeOf(u), pre: !!u && tag(u.element) == 'pre' };
};
