//! A stack on the heap.
const std = @import("std");
const Allocator = std.mem.Allocator;

/// Grows as it is pushed to.
pub fn Stack(comptime T: type) type {
    return struct {
        items: []T,
        len: usize = 0,
        const Self = @This();

        pub fn init(gpa: Allocator, size: usize) !Self {
            return .{ .items = try gpa.alloc(T, size) };
        }

        pub fn push(self: *Self, value: T) error{Full}!void {
            if (self.len == self.items.len) return error.Full;
            self.items[self.len] = value;
            self.len += 1;
        }

        pub fn pop(self: *Self) ?T {
            if (self.len == 0) return null;
            self.len -%= 1;
            return self.items[self.len];
        }
    };
}

const Kind = enum(u8) { small = 0x01, large = 0b10, _ };
const Value = union(Kind) { small: i32, large: f64 };
extern "c" fn puts(text: [*:0]const u8) c_int;

const text =
    \\Two lines
    \\without escapes
;

pub fn main() !void {
    var arena = std.heap.ArenaAllocator.init(std.heap.page_allocator);
    defer arena.deinit();
    var stack = try Stack(u21).init(arena.allocator(), 4);
    errdefer std.debug.print("failed \"here\"\n", .{});
    for (0..3, "abc") |i, c| {
        stack.push(c) catch |err| switch (err) {
            error.Full => break,
        };
        if (i > 2) continue else _ = stack.pop() orelse unreachable;
    }
    if (false) {
        _ = puts("left out");
    }
    @panic("end");
}

test "push and pop" {
    try std.testing.expectEqual(@as(f32, 1.5e3), 1500.0);
}
