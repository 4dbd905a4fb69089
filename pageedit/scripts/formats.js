// The web view writes bold and italic letters as "b" and "i". These functions use the elements that
// the page uses.

var meant = { b: 'strong', i: 'em' };
var respelling = null; // What the page wrote before the web view's command, and how it writes.

// Counts only elements without a class, because pages use those with one for icons.
function countOf(name) { return all(name + ':not([class])').length; }

function balance(format) { return countOf(meant[format]) - countOf(format); }

// Whether the page uses "strong" or "em" for a format. If it has neither, the other format decides.
function isMeant(format) {
    return (balance(format) || balance(format == 'b' ? 'i' : 'b')) > 0;
}

// Called before the web view's command.
queries.formats = function() {
    var r = selectedRange();
    respelling = { known: all('b, i'), formats: ['b', 'i'].filter(isMeant) };
    return { respelled: respelling.formats.length > 0, caret: !r || r.collapsed };
};

function respell() {
    respelling.formats.forEach(function(format) {
        all(format).forEach(function(e) {
            if (respelling.known.indexOf(e) < 0 && !e.attributes.length)
                joinSame(rename(e, meant[format]));
        });
    });
}

commands.respell = function() {
    keepSelection(respell);
};

// Gives the text that was typed last the formats that were chosen for it; see commands.type.
commands.dress = function(args) {
    var r = selectedRange(), t = r && r.collapsed ? r.startContainer : null, from;
    if (!isText(t) || r.startOffset < args.length)
        return;
    from = r.startOffset - args.length;
    if (r.startOffset < t.data.length)
        t.splitText(r.startOffset);
    if (from > 0)
        t = t.splitText(from);
    dressText(t, args);
    respell();
    caretAt(t, t.data.length);
};
