// Makes, changes and removes links.

function isLink(e) { return tag(e) == 'a' && e.hasAttribute('href'); }

// Gives the links that the selection touches.
function selectedLinks() {
    var r = selectedRange(), links = [];
    if (!r)
        return links;
    leavesOf(r).concat(r.collapsed ? [r.startContainer] : []).forEach(function(n) {
        var e = closest(n, isLink);
        if (e && links.indexOf(e) < 0)
            links.push(e);
    });
    return links;
}

// Gives the link around the whole selection.
function linkAround() {
    var links = selectedLinks(), r = selectedRange();
    return links.length == 1 && (r.collapsed || links[0].contains(r.commonAncestorContainer)
                                 || r.toString() == links[0].textContent) ? links[0] : null;
}

function isOneText(e) { return !e.firstChild || (e.firstChild == e.lastChild && isText(e.firstChild)); }

queries.link = function() {
    var link = linkAround(), r = selectedRange();
    var names = all('[id], a[name]').slice(0, 500).map(function(e) {
        return e.id || e.getAttribute('name');
    });
    return { present: !!link, href: link ? link.getAttribute('href') : '',
             title: link ? link.getAttribute('title') || '' : '',
             text: link ? link.textContent : r ? r.toString() : '', names: names,
             textFixed: link ? !isOneText(link)
                             : !!r && !r.collapsed && r.startContainer != r.endContainer };
};

function setText(e, text) {
    if (!text || e.textContent == text)
        return;
    if (isText(e.firstChild))
        e.firstChild.data = text;
    else
        e.appendChild(makeText(text));
}

commands.link = function(args) {
    var link = linkAround(), r = selectedRange(), made = [];
    function create() {
        var e = make('a');
        e.setAttribute('href', args.href);
        setAttribute(e, 'title', args.title);
        made.push(e);
        return e;
    }
    if (!r || !args.href)
        return;
    if (link) {
        setAttribute(link, 'href', args.href);
        setAttribute(link, 'title', args.title);
        if (isOneText(link))
            setText(link, args.text);
    } else if (r.collapsed) {
        link = create();
        link.appendChild(makeText(args.text || args.href));
        insertAtCaret(r, link);
        caretBehind(link);
    } else {
        keepSelection(function() {
            var texts = selectedTexts(true);
            takeOutOf(texts, isLink, unwrap);
            putAround(texts, create);
        });
        if (made.length == 1 && isOneText(made[0]))
            setText(made[0], args.text);
    }
};

// If a link is also a target, it stays as a target.
commands.unlink = function() {
    var links = selectedLinks();
    keepSelection(function() {
        links.forEach(function(e) {
            if (!e.id && !e.hasAttribute('name')) {
                unwrap(e);
                return;
            }
            ['href', 'title', 'target', 'rel'].forEach(function(name) {
                setAttribute(e, name, '');
            });
        });
    });
};
