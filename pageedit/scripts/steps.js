// What a command changes in the document is recorded node by node, so that undo puts the same nodes
// back: the web view's own steps of undo, before and after, go on working on them.

var steps = {}; // By the number that the caller chose.
var recorder = null; // While a command runs.
var touched = []; // Elements with the order of their attributes, of the command that runs.
var watched = { subtree: true, childList: true, attributes: true, attributeOldValue: true,
                characterData: true, characterDataOldValue: true };

function selectionNow() {
    var s = getSelection();
    return s.rangeCount ? [s.anchorNode, s.anchorOffset, s.focusNode, s.focusOffset] : null;
}

function select(place) {
    if (!place)
        return;
    try {
        getSelection().setBaseAndExtent(place[0], place[1], place[2], place[3]);
    } catch (e) {
        // A place that is gone leaves the selection where the change has put it.
    }
}

// Elements that are made for a command are recorded before they come into the document, too.
function watch(node) {
    if (recorder)
        recorder.observe(node, watched);
}

// An element whose attributes are about to change: a removed one comes back at the end.
function touch(e) {
    if (recorder && !touched.some(function(t) { return t.element == e; }))
        touched.push({ element: e, before: attributeNames(e) });
}

function attributeNames(e) {
    return [].map.call(e.attributes, function(a) { return a.name; });
}

function orderAttributes(e, names) {
    if (attributeNames(e).join(' ') == names.join(' '))
        return;
    var values = names.map(function(name) { return e.getAttribute(name); });
    names.forEach(function(name) { e.removeAttribute(name); });
    names.forEach(function(name, n) { e.setAttribute(name, values[n]); });
}

// True when the document was changed; then undoStep(id) and redoStep(id) go back and forth. A change
// that fails half-way is taken back.
function record(id, change) {
    var before = selectionNow(), error = null, records;
    touched = [];
    recorder = new MutationObserver(function() {});
    recorder.observe(document, watched);
    try {
        change();
    } catch (e) {
        error = e;
    }
    records = recorder.takeRecords();
    recorder.disconnect();
    recorder = null;
    if (records.length) {
        touched.forEach(function(t) { t.after = attributeNames(t.element); });
        steps[id] = { changes: records.map(asChange), touched: touched, before: before,
                      after: selectionNow() };
    }
    if (error) {
        undoStep(id);
        delete steps[id];
        throw error;
    }
    return records.length > 0;
}

function asChange(r) {
    return { type: r.type, target: r.target, name: r.attributeName, other: r.oldValue,
             added: [].slice.call(r.addedNodes), removed: [].slice.call(r.removedNodes),
             next: r.nextSibling };
}

function insertAll(nodes, parent, next) {
    nodes.forEach(function(n) { parent.insertBefore(n, next); });
}

function removeAll(nodes, parent) {
    nodes.forEach(function(n) {
        if (n.parentNode == parent)
            parent.removeChild(n);
    });
}

// Text and attributes keep the other value, whichever of the two stands in the document.
function swapValue(c) {
    var now;
    if (c.type == 'characterData') {
        now = c.target.data;
        c.target.data = c.other;
    } else {
        now = c.target.getAttribute(c.name);
        if (c.other === null)
            c.target.removeAttribute(c.name);
        else
            c.target.setAttribute(c.name, c.other);
    }
    c.other = now;
}

function undoStep(id) {
    var step = steps[id], i, c;
    if (!step)
        return false;
    for (i = step.changes.length - 1; i >= 0; --i) {
        c = step.changes[i];
        if (c.type != 'childList') {
            swapValue(c);
            continue;
        }
        removeAll(c.added, c.target);
        insertAll(c.removed, c.target, c.next);
    }
    step.touched.forEach(function(t) { orderAttributes(t.element, t.before); });
    select(step.before);
    return true;
}

function redoStep(id) {
    var step = steps[id];
    if (!step)
        return false;
    step.changes.forEach(function(c) {
        if (c.type != 'childList') {
            swapValue(c);
            return;
        }
        removeAll(c.removed, c.target);
        insertAll(c.added, c.target, c.next);
    });
    step.touched.forEach(function(t) { orderAttributes(t.element, t.after); });
    select(step.after);
    return true;
}
