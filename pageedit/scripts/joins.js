// Cleans up after a deletion that joins paragraphs. The web view joins them, and adds styles with
// the look that the text had before.

var styled = []; // Elements with a style of their own, and that style, before the deletion.

// A quick answer for nearly all keys: text follows the caret in the same node.
function isWithinText(r, back) {
    var n = r.startContainer;
    return isText(n) && /[^ \t\r\n]/.test(back ? n.data.slice(0, r.startOffset)
                                               : n.data.slice(r.startOffset));
}

function isAtStart(r, u) {
    var rest = inDocument('createRange');
    rest.selectNodeContents(u.element || u.parent);
    rest.setEnd(r.startContainer, r.startOffset);
    return !/[^ \t\r\n]/.test(rest.toString()) && !rest.cloneContents().querySelector('img, br');
}

// Tells whether Backspace or Delete would join paragraphs here.
queries.joins = function(args) {
    var r = selectedRange(), units, u;
    if (!r || (r.collapsed && isWithinText(r, args.back)))
        return { joins: false };
    units = selectedUnits(2);
    u = units[0];
    var joins = !!u && (r.collapsed ? (args.back ? isAtStart(r, u) : isAtEnd(r, u))
                                    : units.length > 1);
    styled = joins ? all('[style], span').map(function(e) {
        return { element: e, style: e.getAttribute('style'), copy: e.cloneNode(false) };
    }) : [];
    return { joins: joins };
};

function isNewStyle(e) {
    return styled.every(function(s) { return s.element != e || s.style === null; });
}

// Gives the removed element that the web view made this one from. It had the same tag and all of
// the styles.
function originalOf(e) {
    return styled.filter(function(s) {
        return s.style && tag(s.element) == tag(e) && !body().contains(s.element)
            && [].every.call(s.copy.style, function(name) {
                   return s.copy.style.getPropertyValue(name) == e.style.getPropertyValue(name);
               });
    })[0];
}

commands.unstyle = function() {
    keepSelection(function() {
        all('[style]').filter(isNewStyle).forEach(function(e) {
            var original = body().contains(e) && originalOf(e);
            if (!body().contains(e))
                return;
            setAttribute(e, 'style', original ? original.style : '');
            if (original)
                styled.splice(styled.indexOf(original), 1);
            if (tag(e) == 'span' && isBare(e))
                unwrap(e);
        });
    });
};
