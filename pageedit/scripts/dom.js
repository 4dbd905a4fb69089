// Works on elements and text. The document's functions are taken from their prototypes, because an
// element of the page named "createElement" would hide the document's own.

function inDocument(name, a, b, c, d) {
    return Document.prototype[name].call(document, a, b, c, d);
}

function first(selector) { return inDocument('querySelector', selector); }
function all(selector) { return [].slice.call(inDocument('querySelectorAll', selector)); }
function body() { return first('body'); }

function make(tag) {
    var e = inDocument('createElement', tag);
    watch(e);
    return e;
}

function makeText(text) {
    var t = inDocument('createTextNode', text);
    watch(t);
    return t;
}

function isText(n) { return !!n && n.nodeType == 3; }
function isElement(n) { return !!n && n.nodeType == 1; }
function tag(n) { return isElement(n) ? n.localName.toLowerCase() : ''; }
function kids(n) { return [].slice.call(n.childNodes); }

function nameSet(names) {
    var set = {};
    names.split(' ').forEach(function(name) { set[name] = true; });
    return set;
}

var paragraphTags = nameSet('p h1 h2 h3 h4 h5 h6 pre address');
var blockTags = nameSet('p h1 h2 h3 h4 h5 h6 pre address blockquote ul ol li dl dt dd div section ' +
    'article aside header footer main nav figure figcaption table caption colgroup col thead tbody ' +
    'tfoot tr td th form fieldset legend details summary hr center dir menu body html');
var formatTags = nameSet('b strong i em u s strike sup sub code tt kbd samp var mark big small font span');
var listTags = nameSet('ul ol menu dir');

function isBlock(n) { return blockTags[tag(n)] === true; }
function isParagraph(n) { return paragraphTags[tag(n)] === true; }
function isList(n) { return listTags[tag(n)] === true; }
function isFormat(n) { return formatTags[tag(n)] === true; }
function isBlank(n) { return isText(n) && !/[^ \t\r\n\f]/.test(n.data); }
function isComment(n) { return !!n && n.nodeType == 8; }
function hasBlock(n) { return kids(n).some(function(k) { return isBlock(k) || hasBlock(k); }); }

// Gives the first of a node and its ancestors that passes the test. Null if there is none in the
// body.
function closest(n, test) {
    var b = body();
    for (; n && n != b; n = n.parentNode)
        if (isElement(n) && test(n))
            return n;
    return null;
}

function closestTag(n, names) {
    return closest(n, function(e) { return names[tag(e)] === true; });
}

function before(n, e) { n.parentNode.insertBefore(e, n); }
function after(n, e) { n.parentNode.insertBefore(e, n.nextSibling); }
function remove(n) {
    if (n.parentNode)
        n.parentNode.removeChild(n);
}

function moveAll(nodes, parent, next) {
    nodes.forEach(function(n) { parent.insertBefore(n, next || null); });
}

// Moves siblings into a new element in their place.
function wrap(nodes, e) {
    before(nodes[0], e);
    moveAll(nodes, e);
    return e;
}

function unwrap(e) {
    moveAll(kids(e), e.parentNode, e);
    remove(e);
}

function copyAttributes(from, to) {
    [].slice.call(from.attributes).forEach(function(a) { to.setAttribute(a.name, a.value); });
}

// Replaces an element by one with another tag and the same attributes and content.
function rename(e, name) {
    var n = make(name);
    copyAttributes(e, n);
    before(e, n);
    moveAll(kids(e), n);
    remove(e);
    return n;
}

// Cuts an element before a child. Returns the second part, which begins with the child. Only the
// first part keeps the id.
function splitBefore(e, child) {
    var second = make(tag(e)), n = child, next;
    copyAttributes(e, second);
    second.removeAttribute('id');
    after(e, second);
    for (; n; n = next) {
        next = n.nextSibling;
        second.appendChild(n);
    }
    return second;
}

// The same before any node within the element.
function splitDeep(n, e) {
    var p = n, parent;
    do {
        parent = p.parentNode;
        p = splitBefore(parent, p);
    } while (parent != e);
    return p;
}

// Only these functions change attributes, because they tell the recorder, which keeps their order.
function setAttribute(e, name, value) {
    touch(e);
    if (!value)
        e.removeAttribute(name);
    else if (e.getAttribute(name) !== value)
        e.setAttribute(name, value);
}

// Sets one property of a style attribute, or removes it for ''. The others stay as they are
// written.
function setStyle(e, property, value) {
    var text = e.getAttribute('style') || '', found = false;
    var parts = (text.match(/(?:[^;"'(]|"[^"]*"|'[^']*'|\([^)]*\))+/g) || []).map(function(part) {
        if (part.split(':')[0].trim().toLowerCase() != property)
            return part.trim();
        var again = found;
        found = true;
        return value && !again ? property + ': ' + value : '';
    });
    if (value && !found)
        parts.push(property + ': ' + value);
    parts = parts.filter(function(part) { return part; });
    setAttribute(e, 'style', parts.join('; ') + (parts.length && /;\s*$/.test(text) ? ';' : ''));
}

// Gives the line end and indentation before a node, or '' if the node does not stand on its own
// line.
function lineAt(n) {
    var t = n.previousSibling, m = isText(t) && /(\r?\n[ \t]*)$/.exec(t.data);
    if (!m) {
        t = n.nextSibling;
        m = isText(t) && /^(\r?\n[ \t]*)/.exec(t.data);
    }
    return m ? m[1] : '';
}

function insertLine(line, parent, next) {
    if (line)
        parent.insertBefore(makeText(line), next || null);
}

// If the end tag of a block is left out, the line end before the next tag is inside the block.
// Moves it after the block.
function takeLineOut(block) {
    var t = block.lastChild, m;
    if (tag(block) == 'tr' && isElement(t))
        t = t.lastChild;
    m = isText(t) && !isText(block.nextSibling) && /[ \t]*\n[ \t]*$/.exec(t.data);
    if (!m)
        return;
    t.deleteData(m.index, m[0].length);
    if (!t.data)
        remove(t);
    insertLine(m[0], block.parentNode, block.nextSibling);
}

function isNothing(n) { return isBlank(n) || isComment(n); }

// Gives the next sibling, without blanks and comments.
function nextOf(n) {
    for (n = n.nextSibling; n && isNothing(n); n = n.nextSibling) {}
    return n;
}

function previousOf(n) {
    for (n = n.previousSibling; n && isNothing(n); n = n.previousSibling) {}
    return n;
}

// Whether an element shows nothing. The line break that keeps an empty paragraph open does not
// count.
function isEmpty(e) {
    return kids(e).every(function(n) {
        if (!isElement(n))
            return isNothing(n);
        return tag(n) == 'br' || (!isBlock(n) && (n.firstChild ? isEmpty(n) : isFormat(n)));
    });
}

// Removes a node and the line end before it.
function removeLine(n) {
    var t = n.previousSibling;
    if (isBlank(t) && /\n/.test(t.data))
        remove(t);
    remove(n);
}

// Removes the line end at the end of a text.
function trimEnd(t) {
    var m = isText(t) && /[ \t]*\r?\n[ \t]*$/.exec(t.data);
    if (m && m.index > 0)
        t.deleteData(m.index, m[0].length);
}

// Divides siblings into groups of neighbours. Blanks and comments between neighbours belong to
// their group.
function groupsOf(nodes) {
    var groups = [], n, between;
    nodes.forEach(function(node) {
        var group = groups[groups.length - 1];
        between = [];
        for (n = group && group[group.length - 1].nextSibling; n && n != node && isNothing(n);
             n = n.nextSibling)
            between.push(n);
        if (group && n == node)
            groups[groups.length - 1] = group.concat(between, [node]);
        else
            groups.push([node]);
    });
    return groups;
}

// Moves siblings into a new element. If they stand on lines, so do the element's tags.
function wrapLines(nodes, e) {
    var line = lineAt(nodes[0]);
    wrap(nodes, e);
    insertLine(line, e, e.firstChild);
    insertLine(line, e);
    return e;
}

// Appends the content of a later sibling to an element, and removes what stands between them.
function joinInto(second, e) {
    var n = e.nextSibling, next;
    for (; n != second; n = next) {
        next = n.nextSibling;
        remove(n);
    }
    if (isBlank(e.lastChild))
        remove(e.lastChild);
    moveAll(kids(second), e);
    remove(second);
}

// Moves a block out of the paragraphs and inline elements around it, and cuts these in two.
function hoist(e) {
    var p = e.parentNode, second, line;
    for (; !isBlock(p) || isParagraph(p); p = e.parentNode) {
        line = lineAt(p);
        second = e.nextSibling ? splitBefore(p, e.nextSibling) : null;
        after(p, e);
        if (isEmpty(p))
            remove(p);
        else
            insertLine(line, e.parentNode, e);
        if (second && isEmpty(second))
            remove(second);
        else if (second)
            insertLine(line, e.parentNode, second);
    }
}
