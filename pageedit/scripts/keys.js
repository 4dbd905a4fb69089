// Keys that mean something of their own in lists, headings, quotations and preformatted text. A
// command that changes nothing leaves the key to the web view.

// The caret's unit when nothing stands between the caret and its end.
function unitEndedByCaret() {
    var r = selectedRange(), u = r && r.collapsed ? selectedUnits()[0] : null, rest;
    if (!u || !(u.element || u.parent))
        return null;
    rest = inDocument('createRange');
    rest.selectNodeContents(u.element || u.parent);
    rest.setStart(r.startContainer, r.startOffset);
    return rest.toString().replace(/[\r\n]$/, '') == '' && !rest.cloneContents().querySelector('img')
        ? u : null;
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

commands.enter = function() {
    var u = unitEndedByCaret(), item = u && itemOf(u), quote, text;
    if (!u)
        return;
    if (item && listOf(item) && isEmpty(item)) {
        keepSelection(function() { outdentItem(item); });
    } else if (u.element && /^h[1-6]$/.test(tag(u.element)) && !isEmpty(u.element)) {
        paragraphBehind(u.element);
    } else if (u.element && isEmpty(u.element) && tag(u.parent) == 'blockquote') {
        quote = u.parent;
        keepSelection(function() { liftOut(u.element, quote); });
    } else if (tag(u.element) == 'pre' && /\n\n?$/.test(u.element.textContent)) {
        text = textsIn(u.element).pop();
        text.data = text.data.replace(/\n+$/, '');
        paragraphBehind(u.element);
    }
};

queries.keys = function() {
    var u = selectedUnits(1)[0];
    var r = selectedRange();
    return { empty: !!r && !kids(body()).some(function(n) { return !isNothing(n); }),
             item: !!u && !!listTypeOf(u), pre: !!u && tag(u.element) == 'pre' };
};
