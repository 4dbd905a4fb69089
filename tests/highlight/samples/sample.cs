#nullable enable
using System;
global using System.Collections.Generic;

namespace Shop.Orders;

/// <summary>One line of an order.</summary>
[Serializable, Obsolete("use OrderLine")]
public sealed record Line(string Name, decimal Price = 9.99m, int Count = 0x10);

#region Work
public abstract partial class Order<T> : IDisposable where T : notnull, new()
{
    private readonly List<Line> _lines = [];
    public required string Customer { get; init; } = "Anna \"the first\" \\";
    /* several
       lines: class, "string", 12 */
    public event EventHandler? Changed;

    [Flags]
    private enum State : byte { Open = 1, Closed = 2 }

    public async Task<int> SumAsync(CancellationToken token)
    {
        var big = from line in _lines where line.Price > 1_000 orderby line.Name descending select line;
        await foreach (var x in Read(token).ConfigureAwait(false)) // all of them
            checked { _sum += x switch { > 0 and < 10 => -1, null => 0, _ => +1 }; }
        char quote = '\''; string @class = nameof(Order<T>);
        return stackalloc int[4].Length ?? throw new InvalidOperationException($"none of {quote}");
    }

    void IDisposable.Dispose() => GC.SuppressFinalize(this);
}
#endregion
