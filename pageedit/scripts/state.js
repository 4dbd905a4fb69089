// What the tool bar shows, in one answer.

// The value that all have in common, '' where they differ or there is none.
function common(list, value) {
    var values = list.map(value);
    return values.length && values.every(function(v) { return v === values[0]; }) ? values[0] : '';
}

queries.state = function() {
    var units = selectedUnits();
    return { editable: units.length > 0, style: common(units, styleOf) };
};
