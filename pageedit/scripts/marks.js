// Sets and removes formats of letters.

var markTags = { s: nameSet('s strike del'), sup: nameSet('sup'), sub: nameSet('sub'),
                 code: nameSet('code tt') };

// Gives the texts of the selection, and its pictures if asked for. None for a caret.
function touchedTexts(pictures) {
    var r = selectedRange();
    return !r || r.collapsed ? [] : leavesOf(r).filter(function(n) {
        return (isText(n) || (pictures && tag(n) == 'img')) && isUnitLeaf(n, 2);
    });
}

// The same, but cuts the texts at the selection's ends.
function selectedTexts(pictures) {
    var r = selectedRange();
    if (!r || r.collapsed)
        return [];
    var from = r.startContainer, start = r.startOffset, to = r.endContainer, end = r.endOffset;
    return touchedTexts(pictures).map(function(n) {
        if (n == to && end < n.data.length)
            cut(n, end);
        return n == from && start > 0 ? cut(n, start) : n;
    });
}

// Gives "on", "mixed" or "off" if all, some or none of the texts are in such elements.
function markState(texts, names) {
    var visible = texts.filter(function(n) { return !isBlank(n); });
    var all = visible.length ? visible : texts;
    var on = all.filter(function(n) { return closestTag(n, names); }).length;
    return on == 0 ? 'off' : on == all.length ? 'on' : 'mixed';
}

// Gives the largest inline nodes that contain only these texts.
function wholeNodes(texts) {
    var nodes = [];
    texts.forEach(function(n) {
        function isWhole(e) {
            return textsIn(e).every(function(t) { return texts.indexOf(t) >= 0; });
        }
        while (!isBlock(n.parentNode) && isWhole(n.parentNode))
            n = n.parentNode;
        if (nodes.indexOf(n) < 0)
            nodes.push(n);
    });
    return nodes;
}

// Divides nodes into runs of neighbouring siblings, with the line breaks between them.
function runsOf(nodes) {
    var runs = [];
    nodes.forEach(function(n) {
        var run = runs[runs.length - 1], k = run && run[run.length - 1].nextSibling, between = [];
        for (; k && k != n && (tag(k) == 'br' || isComment(k)); k = k.nextSibling)
            between.push(k);
        if (run && k == n)
            runs[runs.length - 1] = run.concat(between, [n]);
        else
            runs.push([n]);
    });
    return runs;
}

function joinSame(e) {
    [e.previousSibling, e.nextSibling].forEach(function(other, n) {
        if (!other || tag(other) != tag(e) || other.attributes.length || e.attributes.length)
            return;
        moveAll(kids(other), e, n ? null : e.firstChild);
        remove(other);
    });
}

function putAround(texts, create) {
    var name;
    runsOf(wholeNodes(texts)).forEach(function(run) {
        var e = wrap(run, create());
        name = tag(e);
        [].slice.call(e.querySelectorAll(name)).forEach(unwrap);
        joinSame(e);
    });
}

// Cuts an element so that one part of it contains only this node. Returns that part.
function isolate(n, e) {
    var p = n, parent, last;
    do {
        parent = p.parentNode;
        last = parent == e;
        if (p.nextSibling)
            splitBefore(parent, p.nextSibling);
        if (p.previousSibling)
            parent = splitBefore(parent, p);
        p = parent;
    } while (!last);
    return p;
}

// Calls change(element) for each element around the texts that passes the test, after cutting it to
// the texts.
function takeOutOf(texts, test, change) {
    function isOne(e) { return !isBlock(e) && test(e); }
    wholeNodes(texts).forEach(function(n) {
        textsIn(n).forEach(function(t) {
            var e;
            while ((e = closest(t, isOne))) {
                if (!n.contains(e))
                    e = isolate(n, e);
                change(e);
            }
        });
    });
}

function takeOutOfSelection(test, change) {
    var any = touchedTexts().some(function(n) {
        return closest(n, function(e) { return !isBlock(e) && test(e); });
    });
    if (any)
        keepSelection(function() { takeOutOf(selectedTexts(), test, change); });
}

function takeOff(texts, names) {
    takeOutOf(texts, function(e) { return names[tag(e)]; }, unwrap);
}

commands.mark = function(args) {
    var names = markTags[args.mark];
    keepSelection(function() {
        var texts = selectedTexts();
        if (!texts.length)
            return;
        if (markState(texts, names) == 'on') {
            takeOff(texts, names);
            return;
        }
        if (args.mark == 'sup' || args.mark == 'sub')
            takeOff(texts, markTags[args.mark == 'sup' ? 'sub' : 'sup']);
        putAround(texts.filter(function(t) { return !closestTag(t, names); }),
                  function() { return make(args.mark); });
    });
};

function isBare(e) { return (tag(e) == 'span' || tag(e) == 'font') && !e.attributes.length; }

function hasOwnFormat(e) {
    return (isFormat(e) && !(tag(e) == 'span' && e.attributes.length && !e.hasAttribute('style')))
        || e.hasAttribute('style');
}

function makePlain(e) {
    setAttribute(e, 'style', '');
    if (isFormat(e) && !(tag(e) == 'span' && e.attributes.length))
        unwrap(e);
}

commands.plain = function() {
    takeOutOfSelection(hasOwnFormat, makePlain);
};

// Gives the test for elements with "color" or "background-color", and the change that removes it.
function uncoloring(property) {
    var font = property == 'color';
    return {
        test: function(e) {
            return e.style.getPropertyValue(property)
                || (font && tag(e) == 'font' && e.hasAttribute('color'));
        },
        change: function(e) {
            setStyle(e, property, '');
            if (font && tag(e) == 'font')
                setAttribute(e, 'color', '');
            if (isBare(e))
                unwrap(e);
        }
    };
}

commands.uncolor = function(args) {
    var off = uncoloring(args.property);
    takeOutOfSelection(off.test, off.change);
};

function dressText(t, args) {
    args.off.forEach(function(mark) {
        if (mark == '*')
            takeOutOf([t], hasOwnFormat, makePlain);
        else if (markTags[mark])
            takeOff([t], markTags[mark]);
        else
            takeOutOf([t], uncoloring(mark).test, uncoloring(mark).change);
    });
    args.on.forEach(function(mark) {
        if (!closestTag(t, markTags[mark]))
            wrap([t], make(mark));
    });
}

// Types at a caret for which formats were chosen. "on" lists the marks to set. "off" lists what to
// remove: marks, "color", "background-color", or "*" for everything. Between blocks the text begins
// a paragraph. There, the web view leaves a line break after an input method.
commands.type = function(args) {
    var r = selectedRange(), t = makeText(args.text), left, gap;
    if (!r)
        return;
    left = isElement(r.startContainer) ? r.startContainer.childNodes[r.startOffset] : null;
    if (args.composed && tag(left) == 'br')
        remove(left);
    gap = gapAt(r);
    if (gap)
        paragraphInto(gap);
    insertAtCaret(selectedRange(), t);
    dressText(t, args);
    caretAt(t, t.data.length);
};
