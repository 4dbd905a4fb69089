// Pastes by the web view's own editing. Each call is a step of undo, and the caller joins them.

var pasted = []; // The first and the last block of what was pasted.

function blockAtCaret() {
    var r = selectedRange();
    return r && closest(r.startContainer, isBlock);
}

// Pastes each line as a paragraph, or in preformatted text as a line.
edits.pastePlain = function(args) {
    var lines = args.text.split(/\r\n|\r|\n/), u = selectedUnits(1)[0], pre;
    pre = !!u && tag(u.element) == 'pre';
    pasted = [blockAtCaret()];
    if (!pre)
        lines = lines.filter(function(line) { return /\S/.test(line); });
    lines.forEach(function(line, n) {
        if (n)
            inDocument('execCommand', pre ? 'insertLineBreak' : 'insertParagraph', false, '');
        if (line)
            inDocument('execCommand', 'insertText', false, line);
    });
    pasted.push(blockAtCaret());
};

// Puts the pasted blocks on their own lines if the first one stands on one. The web view writes no
// line ends.
commands.linePasted = function() {
    var n = pasted[0], line = n ? lineAt(n) : '';
    if (!line || !pasted[1] || pasted[1].parentNode != n.parentNode)
        return;
    for (; n != pasted[1] && n.nextSibling; n = n.nextSibling)
        if (isElement(n) && isElement(n.nextSibling))
            insertLine(line, n.parentNode, n.nextSibling);
};
