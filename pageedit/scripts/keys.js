// Keys that mean something of their own in lists, headings, quotations and preformatted text. A
// command that changes nothing leaves the key to the web view.

// Whether nothing but a last line end stands between the caret and the end of its unit.
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

// What holds blocks for a person to write paragraphs in; a cell or an item holds bare text.
var sectionTags = nameSet('body div section article main header footer aside blockquote');

// The blocks on both sides of a caret that stands in none, where the web view would type bare text
// between them; one of them may be missing. Null for any other place.
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

// The last child that is more than blanks and comments.
function lastShown(e) { return isNothing(e.lastChild) ? previousOf(e.lastChild) : e.lastChild; }

// A place for the caret in a half that got no text: within the formats that the text had. The blanks
// of the second half stood behind the caret and go on doing so.
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

// Formats and links that got nothing of a half with text. A link does not go on in an empty half.
function dropEmpty(half, elements) {
    if (isEmpty(half))
        return;
    elements.forEach(function(e) {
        if (!e.firstChild && (isFormat(e) || isLink(e)))
            remove(e);
    });
}

// Two blocks of one, the second on a line of its own.
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

// An item whose text is a paragraph ends and is cut as one with bare text.
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
