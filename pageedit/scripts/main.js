// The only entry: runs a command, a query or an edit by its name.

// Makes the web view begin paragraphs as "p".
inDocument('execCommand', 'defaultParagraphSeparator', false, 'p');

return {
    run: function(id, name, args) {
        return record(id, function() { commands[name](args); });
    },
    ask: function(name, args) { return JSON.stringify(queries[name](args)); },
    edit: function(name, args) { return edits[name](args) !== false; },
    undo: undoStep,
    redo: redoStep
};
