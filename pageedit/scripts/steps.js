// Records the changes of a command node by node. Undo restores the same nodes, so that the web
// view's own steps of undo before and after still work.

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
        // If the place is gone, the selection stays where the change has put it.
    }
}

// Records the changes of new elements that are not in the document yet.
function watch(node) {
    if (recorder)
        recorder.observe(node, watched);
}

// Called before an element's attributes change. Keeps their order: a removed attribute would come
// back at the end.
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

// Runs a change. True if it has changed the document; undoStep(id) and redoStep(id) then undo and
// redo it. A change that fails is undone.
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

// Exchanges a text or attribute with its kept value.
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
