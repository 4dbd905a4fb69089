// Styles of paragraphs.

function isPlainBlock(n) { return /^(li|td|th|dd|dt|figcaption|caption|summary)$/.test(tag(n)); }

// "p", "h1" … "h6", "pre", "blockquote".
function styleOf(u) {
    var t = tag(u.element);
    if (/^(h[1-6]|pre)$/.test(t))
        return t;
    return closestTag(u.parent, { blockquote: true }) ? 'blockquote' : 'p';
}

// The element out of the quotation around it, which is cut in two where it stood in the middle.
function liftOut(e, around) {
    if (e.nextSibling)
        splitBefore(around, e.nextSibling);
    after(around, e);
    [around, e.nextSibling].forEach(function(part) {
        if (part && tag(part) == tag(around) && !kids(part).some(function(k) { return !isBlank(k); }))
            remove(part);
    });
}

function setOneStyle(u, style) {
    var quote = tag(u.parent) == 'blockquote' ? u.parent : null;
    if (styleOf(u) == style)
        return;
    if (!u.element && style == 'p' && isPlainBlock(u.parent))
        return;
    var e = asElement(u);
    if (tag(e) != style)
        e = u.element = rename(e, style);
    if (style == 'p' && quote)
        liftOut(e, quote);
}

commands.style = function(args) {
    var units = selectedUnits();
    keepSelection(function() {
        units.forEach(function(u) { setOneStyle(u, args.style); });
    });
};
