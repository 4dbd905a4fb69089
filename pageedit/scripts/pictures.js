// Pictures. One is selected when the selection holds it and nothing else.

function isPicture(n) { return tag(n) == 'img'; }

function selectedPicture() {
    var r = selectedRange(), top, within;
    if (!r || r.collapsed || r.toString())
        return null;
    top = r.commonAncestorContainer;
    within = isElement(top) ? [].slice.call(top.querySelectorAll('img')) : [];
    within = within.filter(function(e) {
        var i = indexOf(e);
        return r.comparePoint(e.parentNode, i) == 0 && r.comparePoint(e.parentNode, i + 1) == 0;
    });
    return within.length == 1 ? within[0] : null;
}

function lengthOf(e, name) {
    var text = e.getAttribute(name) || '';
    return /^\d+(px)?$/.test(text.trim()) ? parseInt(text, 10) : 0;
}

// What is known of the selected picture; "box" is its place in the document.
queries.picture = function() {
    var e = selectedPicture(), b = e && e.getBoundingClientRect();
    return !e ? { present: false } : {
        present: true, src: e.getAttribute('src') || '', alt: e.getAttribute('alt') || '',
        width: lengthOf(e, 'width'), height: lengthOf(e, 'height'),
        naturalWidth: e.naturalWidth, naturalHeight: e.naturalHeight,
        box: [b.left + pageXOffset, b.top + pageYOffset, b.width, b.height]
    };
};

function selectNode(e) {
    var i = indexOf(e);
    select([e.parentNode, i, e.parentNode, i + 1]);
}

// Selects the picture at a point of the view, where there is one.
queries.selectPictureAt = function(args) {
    var e = inDocument('elementFromPoint', args.x, args.y);
    if (!isPicture(e) || !body().contains(e))
        return { present: false };
    selectNode(e);
    return { present: true };
};

// The caret to where something is dropped.
queries.caretAtPoint = function(args) {
    var r = inDocument('caretRangeFromPoint', args.x, args.y);
    if (r && body().contains(r.startContainer))
        caretAt(r.startContainer, r.startOffset);
    return {};
};

function describePicture(e, args) {
    setAttribute(e, 'src', args.src);
    touch(e);
    if (e.getAttribute('alt') !== args.alt)
        e.setAttribute('alt', args.alt); // Also an empty one: a picture that says nothing.
    sizePicture(e, args.width, args.height);
}

// 0 for the picture's own size. A style that stands against it gives way.
function sizePicture(e, width, height) {
    ['width', 'height'].forEach(function(name) {
        if (new RegExp('(^|;)\\s*' + name + '\\s*:', 'i').test(e.getAttribute('style') || ''))
            setStyle(e, name, '');
    });
    setAttribute(e, 'width', width ? String(width) : '');
    setAttribute(e, 'height', height ? String(height) : '');
}

// Where text may stand behind the selection; in an empty page in a paragraph of its own.
function placeBehindSelection() {
    var u = selectedUnits().pop(), r = selectedRange(), block;
    if (!u)
        return null;
    if (!u.element && tag(u.parent) == 'body' && !u.nodes.length) {
        r.selectNodeContents(asElement(u));
        r.collapse(true);
        return r;
    }
    block = u.element || u.parent;
    r = r.cloneRange();
    r.collapse(false);
    if (!block.contains(r.startContainer)) {
        r.selectNodeContents(block);
        r.collapse(false);
    }
    return r;
}

// Behind the selection. Nothing that is selected goes.
commands.insertPicture = function(args) {
    var e = make('img'), r = placeBehindSelection();
    if (!r)
        return;
    describePicture(e, args);
    insertAtCaret(r, e);
    caretBehind(e); // What is typed next is to stand there, not in its place.
};

commands.changePicture = function(args) {
    var e = selectedPicture();
    if (e)
        describePicture(e, args);
};

commands.sizePicture = function(args) {
    var e = selectedPicture();
    if (e)
        sizePicture(e, args.width, args.height);
};
