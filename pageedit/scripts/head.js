// Reads and changes the page's head and the properties of the whole page, and lists the places to
// go to.

function descriptionMeta() {
    return all('meta[name]').filter(function(e) {
        return e.getAttribute('name').toLowerCase() == 'description';
    })[0] || null;
}

function sheets() {
    return all('link[href]').filter(function(e) {
        return /(^|\s)stylesheet(\s|$)/i.test(e.getAttribute('rel') || '');
    });
}

function bodyColor(property, attribute) {
    return body().style.getPropertyValue(property) || body().getAttribute(attribute) || '';
}

queries.properties = function() {
    var title = first('head title'), meta = descriptionMeta();
    return { title: title ? title.textContent : '',
             language: first('html').getAttribute('lang') || first('html').getAttribute('xml:lang') || '',
             description: meta ? meta.getAttribute('content') || '' : '',
             color: bodyColor('color', 'text'),
             background: bodyColor('background-color', 'bgcolor'),
             sheets: sheets().map(function(e) { return e.getAttribute('href'); }) };
};

function addToHead(e) {
    var head = first('head'), last = head.lastChild, end = isBlank(last) ? last : null;
    var previous = end ? end.previousSibling : last, line = previous ? lineAt(previous) : '';
    if (!line && end && /\n/.test(end.data))
        line = '\n';
    head.insertBefore(e, end);
    insertLine(line, head, e);
}

function setBodyColor(property, attribute, value) {
    if (bodyColor(property, attribute) == value)
        return;
    if (value && body().hasAttribute(attribute) && !body().style.getPropertyValue(property)) {
        setAttribute(body(), attribute, value);
        return;
    }
    setAttribute(body(), attribute, '');
    setStyle(body(), property, value);
}

function setDescription(text) {
    var meta = descriptionMeta();
    if (meta && text) {
        setAttribute(meta, 'content', text);
    } else if (meta) {
        removeLine(meta);
    } else if (text) {
        meta = make('meta');
        meta.setAttribute('name', 'description');
        meta.setAttribute('content', text);
        addToHead(meta);
    }
}

function setTitle(text) {
    var title = first('head title');
    if (!title && text) {
        title = make('title');
        addToHead(title);
    }
    if (title && title.textContent != text)
        title.textContent = text;
}

function setSheets(wanted) {
    sheets().forEach(function(e) {
        var at = wanted.indexOf(e.getAttribute('href'));
        if (at < 0)
            removeLine(e);
        else
            wanted.splice(at, 1);
    });
    wanted.forEach(function(href) {
        var e = make('link');
        e.setAttribute('rel', 'stylesheet');
        e.setAttribute('href', href);
        addToHead(e);
    });
}

// Changes only the properties that differ from the page's.
commands.properties = function(args) {
    var html = first('html');
    setTitle(args.title);
    if (queries.properties().language != args.language) {
        setAttribute(html, 'lang', args.language);
        if (html.hasAttribute('xml:lang'))
            setAttribute(html, 'xml:lang', args.language);
    }
    setDescription(args.description);
    setBodyColor('color', 'text', args.color);
    setBodyColor('background-color', 'bgcolor', args.background);
    setSheets(args.sheets.slice());
};

function outlined() {
    return all('h1, h2, h3, h4, h5, h6, [id], a[name]').filter(function(e) {
        return body() && body().contains(e) && e != body();
    }).slice(0, 1000);
}

// Gives the headings with their levels, and with level 0 the other elements that an address can
// name.
queries.outline = function() {
    return { places: outlined().map(function(e) {
        var m = /^h([1-6])$/.exec(tag(e));
        return { level: m ? Number(m[1]) : 0,
                 text: m ? e.textContent.replace(/\s+/g, ' ').trim().slice(0, 80)
                         : '#' + (e.id || e.getAttribute('name')) };
    }) };
};

queries.goTo = function(args) {
    var e = outlined()[args.index];
    if (!e)
        return { done: false };
    caretInto(e);
    e.scrollIntoViewIfNeeded(true);
    return { done: true };
};
