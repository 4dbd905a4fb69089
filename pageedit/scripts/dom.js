// Elements and text. The document's functions are taken from their prototypes: in a page, an element
// named "createElement" would otherwise stand in their place.

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
var listTags = nameSet('ul ol menu dir');

function isBlock(n) { return blockTags[tag(n)] === true; }
function isParagraph(n) { return paragraphTags[tag(n)] === true; }
function isList(n) { return listTags[tag(n)] === true; }
function isBlank(n) { return isText(n) && !/[^ \t\r\n\f]/.test(n.data); }
function isComment(n) { return !!n && n.nodeType == 8; }
function hasBlock(n) { return kids(n).some(function(k) { return isBlock(k) || hasBlock(k); }); }

// The nearest of a node and its ancestors that the test holds for; null outside the body.
function closest(n, test) {
    var b = body();
    for (; n && b && b.contains(n); n = n.parentNode)
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

// Siblings into a new element in their place.
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

// Another tag with the same attributes and content.
function rename(e, name) {
    var n = make(name);
    copyAttributes(e, n);
    before(e, n);
    moveAll(kids(e), n);
    remove(e);
    return n;
}

// Cuts an element before a child; what stands from there on goes into the second part, which is
// returned. An id stays with the first part alone.
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

// The style of an element without what stands for nothing.
function setStyle(e, property, value) {
    if (value)
        e.style.setProperty(property, value);
    else
        e.style.removeProperty(property);
    if (!e.getAttribute('style'))
        e.removeAttribute('style');
}

// The line end and indentation that the page has before this node; '' where it is not on a line of
// its own.
function lineBefore(n) {
    var t = n.previousSibling, m = isText(t) && /(\r?\n[ \t]*)$/.exec(t.data);
    return m ? m[1] : '';
}
