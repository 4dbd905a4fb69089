// Blanks, which the web view writes as it needs them to be seen. Whatever becomes another one here
// keeps its place in the text, so that the steps of typing around it go on working.

var besideTyping = null; // The text that is typed into, as it was.

// Before something is typed or deleted beside a non-breaking space of the page, which the web view
// takes for one of its own. False where there is none.
edits.noteBlanks = function() {
    var r = selectedRange(), t = r && r.collapsed ? r.startContainer : null, at;
    besideTyping = null;
    if (!isText(t))
        return false;
    at = r.startOffset;
    if (t.data.slice(Math.max(0, at - 2), at + 2).indexOf('\u00a0') < 0)
        return false;
    besideTyping = { text: t, data: t.data, at: at };
    return true;
};

// Afterwards: the page's own non-breaking spaces come back.
edits.keepBlanks = function() {
    var note = besideTyping, t = note && note.text, more = t ? t.data.length - note.data.length : 0;
    var r = selectedRange(), i, j, from, caret, changed = false;
    besideTyping = null;
    if (!more || !r || r.startContainer != t)
        return false;
    caret = r.startOffset;
    from = Math.min(note.at, caret); // Up to here nothing has moved.
    for (i = 0; i < note.data.length; ++i) {
        if (more < 0 && i >= from && i < from - more)
            continue; // Deleted.
        j = i < from ? i : i + more;
        if (note.data.charAt(i) == '\u00a0' && t.data.charAt(j) == ' ') {
            t.replaceData(j, 1, '\u00a0');
            changed = true;
        }
    }
    if (r.startOffset != caret)
        caretAt(t, caret);
    return changed;
};

// The web view leaves texts without a letter.
function isHollow(n) { return isComment(n) || (isText(n) && !n.data); }

function endsInText(n) {
    for (; n; n = n.lastChild)
        if (isText(n) || !n.firstChild)
            return isText(n) ? /[^ \t\r\n\u00a0]$/.test(n.data) : tag(n) == 'img';
    return false;
}

// Whether something is seen right before a place in a text, for which a blank would be seen, too.
function followsText(t, at) {
    var n = t, k;
    if (at > 0)
        return /[^ \t\r\n\u00a0]/.test(t.data.charAt(at - 1));
    for (; n && !isBlock(n); n = n.parentNode)
        for (k = n.previousSibling; k; k = k.previousSibling)
            if (!isHollow(k))
                return !isBlock(k) && endsInText(k);
    return false;
}

// Whether the caret stands behind a blank in a text.
edits.isBehindBlank = function() {
    var r = selectedRange(), t = r && r.collapsed ? r.startContainer : null;
    return isText(t) && r.startOffset > 0 && /[ \u00a0]/.test(t.data.charAt(r.startOffset - 1));
};

function isSeenBehind(n) {
    for (; n && !isBlock(n); n = n.parentNode)
        if (n.nextSibling && tag(n.nextSibling) != 'br' && !isBlock(n.nextSibling)
            && !isNothing(n.nextSibling))
            return true;
    return false;
}

// The non-breaking space that the web view typed for a blank, as many characters before the caret,
// becomes that blank; at the end of a line, where nobody would see it, nothing. The steps of typing
// around it go on working: what follows in the text keeps its place.
edits.settleBlank = function(args) {
    var r = selectedRange(), t = r && r.collapsed ? r.startContainer : null, at;
    if (!isText(t))
        return false;
    at = r.startOffset - args.behind - 1;
    if (t.data.charAt(at) != '\u00a0' || !followsText(t, at) || /^[ \u00a0]/.test(t.data.slice(at + 1)))
        return false;
    if (!args.behind && at == t.data.length - 1 && !isSeenBehind(t))
        t.deleteData(at, 1);
    else
        t.replaceData(at, 1, ' ');
    if (!args.behind)
        caretAt(t, Math.min(at + 1, t.data.length));
    return true;
};
