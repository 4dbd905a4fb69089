// Changes the styles of paragraphs.

// Whether a block holds bare text, which is a paragraph without an element.
function isPlainBlock(n) { return /^(li|td|th|dd|dt|figcaption|caption|summary|legend)$/.test(tag(n)); }

// Gives "p", "h1" … "h6", "pre" or "blockquote".
function styleOf(u) {
    var t = tag(u.element);
    if (/^(h[1-6]|pre)$/.test(t))
        return t;
    return closestTag(u.element || u.parent, { blockquote: true }) ? 'blockquote' : 'p';
}

function isAlone(n) { return !previousOf(n) && !nextOf(n); }

// Moves a node out of an element. If the node stood in the middle, the element is cut in two.
function liftOut(n, around) {
    var line = lineAt(around) || lineAt(n), second = null;
    if (n.nextSibling)
        second = splitBefore(around, n.nextSibling);
    after(around, n);
    if (isEmpty(around))
        remove(around); // Its line becomes that of the node.
    else
        insertLine(line, n.parentNode, n);
    if (second && isEmpty(second))
        remove(second);
    else if (second)
        insertLine(line, n.parentNode, second);
}

// Whether an element's text is no text of the page.
function keepsItsText(e) { return /^(script|style|template|textarea|select)$/.test(tag(e)); }

function textsIn(e) {
    var texts = [], n;
    for (n = e; n; n = n != e && keepsItsText(n) ? nextBehind(n, e) : nextNode(n, e))
        if (isText(n))
            texts.push(n);
    return texts;
}

function collapsed(text, lineStart) {
    return text.replace(/[ \t\r\n\f]+/g, ' ').replace(/^ /, lineStart ? '' : ' ');
}

// Makes an element preformatted. Its text becomes what a browser shows of it.
function intoPre(e) {
    var lineStart = true, n, next, shown;
    if (isEmpty(e))
        return rename(e, 'pre');
    for (n = e.firstChild; n; n = next) {
        next = keepsItsText(n) ? nextBehind(n, e) : nextNode(n, e);
        if (isText(n)) {
            shown = collapsed(n.data, lineStart);
            if (shown != n.data)
                setData(n, shown, function(text) { return collapsed(text, lineStart); });
            lineStart = shown ? / $/.test(shown) : lineStart;
        } else if (tag(n) == 'br') {
            lineStart = true;
            before(n, makeText('\n'));
            remove(n);
        }
    }
    return rename(e, 'pre');
}

function withoutStart(text) { return text.replace(/^\n[ \t]*/, ''); }

function outOfPre(e, name) {
    textsIn(e).forEach(function(t) {
        var at;
        while ((at = t.data.indexOf('\n')) >= 0) {
            t = cut(t, at);
            before(t, make('br'));
            setData(t, withoutStart(t.data), withoutStart);
        }
        if (!t.data && t.parentNode)
            remove(t);
    });
    var e2 = rename(e, name);
    if (tag(e2.lastChild) == 'br' && !isEmpty(e2))
        remove(e2.lastChild);
    return e2;
}

function convert(u, name) {
    var e = asElement(u, name);
    if (tag(e) == name)
        return e;
    if (name == 'pre')
        u.element = intoPre(e);
    else if (tag(e) == 'pre')
        u.element = outOfPre(e, name);
    else
        u.element = rename(e, name);
    return u.element;
}

function setParagraph(u) {
    if (!u.element && isPlainBlock(u.parent) && styleOf(u) == 'p')
        return;
    var e = convert(u, 'p'), quote = closestTag(e.parentNode, { blockquote: true });
    if (quote && e.parentNode == quote)
        liftOut(e, quote);
    else if (isPlainBlock(e.parentNode) && isAlone(e) && !e.attributes.length && !isEmpty(e))
        unwrap(e);
}

function setQuotation(units) {
    var paragraphs = units.filter(function(u) { return styleOf(u) != 'blockquote'; })
                         .map(function(u) {
                             return closestTag(u.parent, { blockquote: true }) && u.element
                                 ? (convert(u, 'p'), null) : convert(u, 'p');
                         })
                         .filter(function(e) { return e; });
    var present = units.map(function(u) {
        return closestTag(u.parent, { blockquote: true });
    });
    groupsOf(paragraphs).forEach(function(group) {
        var quote = wrapLines(group, make('blockquote'));
        var next = nextOf(quote), previous = previousOf(quote);
        present.push(quote);
        if (next && present.indexOf(next) >= 0)
            joinInto(next, quote);
        if (previous && present.indexOf(previous) >= 0)
            joinInto(quote, previous);
    });
}

// Makes the units one preformatted text, with a line for each.
function setPreformatted(units) {
    var texts = units.map(function(u) { return convert(u, 'pre'); });
    groupsOf(texts).forEach(function(group) {
        var e = group[0];
        group.slice(1).forEach(function(n) {
            if (tag(n) == 'pre') {
                e.appendChild(makeText('\n'));
                moveAll(kids(n), e);
            }
            remove(n);
        });
    });
}

commands.style = function(args) {
    var units = selectedUnits();
    keepSelection(function() {
        if (args.style == 'blockquote')
            setQuotation(units);
        else if (args.style == 'pre')
            setPreformatted(units);
        else if (args.style == 'p')
            units.forEach(setParagraph);
        else
            units.forEach(function(u) { convert(u, args.style); });
    });
};
