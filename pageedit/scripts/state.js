// Gives everything that the tool bar shows in one answer.

var mostLeaves = 2000; // The beginning stands for the rest of a larger selection.

// Gives the common value, or '' if values differ or there is none.
function common(list, value) {
    var values = list.map(value);
    return values.length && values.every(function(v) { return v === values[0]; }) ? values[0] : '';
}

queries.state = function() {
    var units = selectedUnits(mostLeaves), r = selectedRange();
    var texts = r ? leavesOf(r, mostLeaves).filter(function(n) {
        return r.collapsed || (isText(n) && isUnitLeaf(n, 2));
    }) : [];
    if (r && r.collapsed)
        texts = [r.startContainer];
    function marked(name) { return texts.length ? markState(texts, markTags[name]) : 'off'; }
    function element(u) { return u.element || u.parent; }
    return {
        editable: units.length > 0,
        caret: !!r && r.collapsed,
        style: common(units, styleOf),
        list: common(units, listTypeOf),
        align: common(units, function(u) { return alignmentOf(element(u)); }),
        marks: { s: marked('s'), sup: marked('sup'), sub: marked('sub'), code: marked('code') },
        link: !!r && (r.collapsed ? !!closest(r.startContainer, isLink)
                                  : texts.some(function(n) { return closest(n, isLink); })),
        indent: units.some(function(u) {
            var item = itemOf(u), above = item && previousOf(item);
            return !item || (above && tag(above) == 'li');
        }),
        outdent: units.some(function(u) {
            return itemOf(u) || ownIndent(u) > 0 || styleOf(u) == 'blockquote';
        })
    };
};
