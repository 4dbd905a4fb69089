// What the web view's own editing does best: each call is a step of its own, which the caller joins.

// Each line is a paragraph, in preformatted text a line.
edits.pastePlain = function(args) {
    var lines = args.text.split(/\r\n|\r|\n/), u = selectedUnits(1)[0], pre;
    pre = !!u && tag(u.element) == 'pre';
    if (!pre)
        lines = lines.filter(function(line) { return /\S/.test(line); });
    lines.forEach(function(line, n) {
        if (n)
            inDocument('execCommand', pre ? 'insertLineBreak' : 'insertParagraph', false, '');
        if (line)
            inDocument('execCommand', 'insertText', false, line);
    });
};
