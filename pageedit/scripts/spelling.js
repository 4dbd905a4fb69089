// Gives text to the dictionary and finds the places of its words. A run is the text between two
// blocks or line breaks, with all inline elements in it.

// The texts of the last questions: about the visible part, and about the whole page. A word is given by
// its text, start and length.
var spelledRuns = [], allRuns = [];
var misspelt = []; // Ranges, which follow what is typed.

// Elements without prose.
var unspelledTags = nameSet('script style title textarea select option template code kbd samp var ' +
    'tt iframe object svg math noscript audio video canvas');
var lineTags = nameSet('br hr img input button');

function isSpelled(e) {
    var spellcheck = e.getAttribute('spellcheck');
    return !unspelledTags[tag(e)] && spellcheck !== 'false';
}

function languageOf(n) {
    for (var e = n; isElement(e) || isText(e); e = e.parentNode) {
        var lang = isElement(e) && (e.getAttribute('lang') || e.getAttribute('xml:lang'));
        if (lang)
            return lang;
    }
    return '';
}

function isInView(e) {
    var box = e.getBoundingClientRect();
    return !(box.width || box.height) || (box.bottom >= 0 && box.top <= innerHeight);
}

var manyChildren = 100; // From there on, the first one in view is searched by halves.
var outOfOrder = 20; // So many neighbours may stand elsewhere than in their order.

// Gives the first visible child of an element, or one a little before it.
function firstInView(e) {
    var children = e.children, low = 0, high = children.length, middle;
    if (high < manyChildren)
        return e.firstChild;
    while (low < high) {
        middle = (low + high) >> 1;
        if (children[middle].getBoundingClientRect().bottom < 0)
            low = middle + 1;
        else
            high = middle;
    }
    return low > outOfOrder ? children[low - outOfOrder] : e.firstChild;
}

function isBelowView(e) { return e.getBoundingClientRect().top > innerHeight; }

function collectRuns(all) {
    var runs = [], run = null;
    function end() { run = null; }
    function addText(n) {
        if (!run)
            runs.push(run = { nodes: [], text: '', lang: languageOf(n) });
        run.nodes.push(n);
        run.text += n.data;
    }
    // A word may continue after a bold letter, but not in another language.
    function addElement(n) {
        var apart = isBlock(n) || lineTags[tag(n)] || !isSpelled(n) || n.hasAttribute('lang');
        if (apart)
            end();
        if (isSpelled(n) && (all || isInView(n)))
            walk(n);
        if (apart)
            end();
    }
    function walk(e) {
        var below = 0, n = all ? e.firstChild : firstInView(e);
        for (; n && below <= outOfOrder; n = n.nextSibling) {
            if (isText(n))
                addText(n);
            else if (isElement(n)) {
                addElement(n);
                below = !all && isBelowView(n) ? below + 1 : 0;
            }
        }
    }
    if (body())
        walk(body());
    return runs.filter(function(r) { return /[^\s]/.test(r.text); });
}

// Gives a place in a run as a node and an offset. Between two nodes it is in the earlier one, or in
// the later one for a start.
function placeInRun(run, at, isStart) {
    for (var i = 0; i < run.nodes.length; ++i) {
        var size = run.nodes[i].data.length;
        if (at < size || (at == size && (!isStart || i == run.nodes.length - 1)))
            return [run.nodes[i], at];
        at -= size;
    }
    return null;
}

// Gives the run of the caret and the place in it, or the first run after the caret. [] if there is
// none.
function caretInRuns(runs) {
    var r = selectedRange();
    if (!r)
        return [];
    var n = r.startContainer, atEnd = !isText(n) && !n.childNodes[r.startOffset];
    var from = nodeAt(n, r.startOffset);
    for (var i = 0; i < runs.length; ++i) {
        for (var j = 0, at = 0; j < runs[i].nodes.length; at += runs[i].nodes[j++].data.length) {
            var t = runs[i].nodes[j], order = from.compareDocumentPosition(t) & 20;
            if (t == n)
                return [i, at + r.startOffset];
            if (t == from || (atEnd ? order == 4 : order)) // 4: behind it, 16: within it.
                return [i, at];
        }
    }
    return [runs.length, 0];
}

function wordRange(runs, word) {
    var run = runs[word[0]], r = inDocument('createRange');
    var a = placeInRun(run, word[1], true), b = placeInRun(run, word[1] + word[2], false);
    r.setStart(a[0], a[1]);
    r.setEnd(b[0], b[1]);
    return r;
}

// Gives the visible texts, or those of the whole page, with their languages, and the place of the
// caret.
queries.spelledTexts = function(args) {
    var runs = collectRuns(args.all), s = getSelection();
    if (args.all)
        allRuns = runs;
    else
        spelledRuns = runs;
    return {
        texts: runs.map(function(run) { return [run.text, run.lang]; }),
        caret: caretInRuns(runs),
        selected: s.rangeCount ? s.toString() : ''
    };
};

// Sets the misspelt words.
queries.markMisspelt = function(args) {
    misspelt = args.words.map(function(word) { return wordRange(spelledRuns, word); });
    return queries.misspeltBoxes();
};

// Gives left, top, width and height of each piece of a misspelt word in the document.
queries.misspeltBoxes = function() {
    var boxes = [];
    misspelt.forEach(function(r) {
        if (r.collapsed)
            return;
        [].forEach.call(r.getClientRects(), function(b) {
            if (b.width)
                boxes.push([b.left + pageXOffset, b.top + pageYOffset, b.width, b.height]);
        });
    });
    return boxes;
};

queries.selectWord = function(args) {
    var r = wordRange(allRuns, args.word), s = getSelection();
    s.removeAllRanges();
    s.addRange(r);
    r.startContainer.parentNode.scrollIntoViewIfNeeded(true);
    return {};
};

// The new word gets the formats of the first letter.
commands.replaceWord = function(args) {
    var r = wordRange(allRuns, args.word), n = r.startContainer, end = r.endContainer;
    var last = end == n ? r.endOffset : n.data.length, start = r.startOffset;
    if (end != n) {
        r.setStart(n, n.data.length);
        r.deleteContents();
    }
    n.data = n.data.slice(0, start) + args.text + n.data.slice(last);
    getSelection().collapse(n, start + args.text.length);
};
