// The one door: a command or a query by name.

return {
    run: function(id, name, args) {
        return record(id, function() { commands[name](args); });
    },
    ask: function(name, args) { return JSON.stringify(queries[name](args)); },
    undo: undoStep,
    redo: redoStep
};
