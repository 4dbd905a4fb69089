// The web view writes a blank as a non-breaking space where an ordinary one would not be seen.
// These functions put the page's own kind back. Each blank keeps its place in the text, so that the
// web view's steps of undo still work.

var besideTyping = null; // The text that is typed into, as it was.

// Called before something is typed or deleted. Notes the page's non-breaking spaces beside the
// caret, because the web view would take them for its own. False if there are none.
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

// Called afterwards. Puts the page's non-breaking spaces back.
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

// The web view leaves empty texts behind.
function isHollow(n) { return isComment(n) || (isText(n) && !n.data); }

function endsInText(n) {
    for (; n; n = n.lastChild)
        if (isText(n) || !n.firstChild)
            return isText(n) ? /[^ \t\r\n\u00a0]$/.test(n.data) : tag(n) == 'img';
    return false;
}

// Whether something visible stands right before a place in a text, so that a blank there would be
// visible, too.
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

// Whether the caret stands after a blank in a text.
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

// Turns the non-breaking space that the web view typed for a blank, "behind" characters before the
// caret, into a blank. Removes it at the end of a line, where a blank is invisible. Other text of
// the node keeps its place, so that the steps of undo still work.
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
