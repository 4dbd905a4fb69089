// Handles pictures. A picture is selected if the selection contains only the picture.

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

// Describes the selected picture. "box" is its place in the document.
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

// Selects the picture at a point of the view, if there is one.
queries.selectPictureAt = function(args) {
    var e = inDocument('elementFromPoint', args.x, args.y);
    if (!isPicture(e) || !body().contains(e))
        return { present: false };
    selectNode(e);
    return { present: true };
};

// Moves the caret to where something is dropped.
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

// Sets the size; 0 means the picture's own. Removes styles that would overrule it.
function sizePicture(e, width, height) {
    ['width', 'height'].forEach(function(name) {
        if (new RegExp('(^|;)\\s*' + name + '\\s*:', 'i').test(e.getAttribute('style') || ''))
            setStyle(e, name, '');
    });
    setAttribute(e, 'width', width ? String(width) : '');
    setAttribute(e, 'height', height ? String(height) : '');
}

// Gives a place for text after the selection. Makes a paragraph if the page is empty.
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

// Inserts after the selection, and removes nothing.
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

// Gives what moves with a picture: a link or format that contains only the picture, or a figure
// with its caption.
function movedWith(picture) {
    var e = picture, p = e.parentNode;
    for (; (!isBlock(p) && isAlone(e)) || tag(p) == 'picture'; p = e.parentNode)
        e = p;
    return tag(p) == 'figure' ? p : e;
}

// Gives the place for a dropped picture, which is in text and not in what moves.
function dropRange(args, moved) {
    var r = inDocument('caretRangeFromPoint', args.x, args.y), n = r && r.startContainer, block;
    if (!r || !body().contains(n) || moved.contains(n))
        return null;
    block = isBlock(n) ? n : closest(n, isBlock) || body();
    return /^(ul|ol|menu|dir|dl|table|thead|tbody|tfoot|tr|colgroup|hr)$/.test(tag(block))
        || closest(n, keepsItsText) || closest(n, isField) ? null : r;
}

function isField(e) { return /^(button|option|input|audio|video|object|svg|iframe)$/.test(tag(e)); }

// Whether the node stands at this place already.
function isBeside(r, e) {
    var n = r.startContainer, at = r.startOffset;
    if (isElement(n))
        return n.childNodes[at] == e || (at > 0 && n.childNodes[at - 1] == e);
    return (at == n.data.length && n.nextSibling == e) || (at == 0 && n.previousSibling == e);
}

// Gives the place of the caret in the document where the picture would be dropped, if it may be.
queries.pictureDropPlace = function(args) {
    var e = selectedPicture(), r = e && dropRange(args, movedWith(e)), box;
    if (!r)
        return {};
    box = r.getClientRects()[0] || (isElement(r.startContainer) ? r.startContainer
                                                               : r.startContainer.parentNode)
                                       .getBoundingClientRect();
    return { box: [box.left + pageXOffset, box.top + pageYOffset, 2, Math.max(box.height, 10)] };
};

// Cleans up where a node was: makes two blanks one, and removes an empty paragraph.
function closeGap(before, after, block) {
    if (isText(before) && isText(after) && / $/.test(before.data) && /^ /.test(after.data))
        after.deleteData(0, 1);
    if (block != body() && isEmpty(block) && (isParagraph(block) || tag(block) == 'div'))
        removeLine(block);
}

// Moves the selected picture to where it is dropped.
commands.movePicture = function(args) {
    var picture = selectedPicture(), e = picture && movedWith(picture);
    var r = e && dropRange(args, e), block, sides;
    if (!r || isBeside(r, e))
        return;
    block = closest(e.parentNode, isBlock) || body();
    sides = [e.previousSibling, e.nextSibling];
    if (isBlock(e) && !sides[0] && isBlank(sides[1]))
        remove(sides[1]);
    if (isBlock(e))
        removeLine(e);
    else
        remove(e);
    insertAtCaret(r, e);
    if (isBlock(e))
        hoist(e);
    else if (e.parentNode == body() && hasBlock(body()) && !isText(e.previousSibling)
             && !isText(e.nextSibling))
        wrap([e], make('p'));
    closeGap(sides[0], sides[1], block);
    selectNode(picture);
};
