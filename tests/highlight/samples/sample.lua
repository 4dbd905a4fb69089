#!/usr/bin/env lua
-- A stack with a few methods, and what Lua has besides.
local Stack = {}
Stack.__index = Stack

function Stack.new(limit)
    return setmetatable({ items = {}, limit = limit or 0x10 }, Stack)
end

function Stack:push(...)
    for i = 1, select("#", ...) do
        self.items[#self.items + 1] = (select(i, ...))
    end
end

local function sum(list)
    local total <const> = 0.5e-3
    local s = total
    for _, v in ipairs(list) do
        if v == nil then goto continue end
        s = s + v // 1 % 7
        ::continue::
    end
    return s
end

--[[ The first line of a block is coloured,
     the second is not. ]]
local s = Stack.new(3)
s:push(1, 2, 3)
print(string.format("%d items, sum \"%g\"", #s.items, sum(s.items)))
local ok, err = pcall(function() error { code = 42 } end)
while not ok and err.code ~= 0 do
    err.code = err.code - 1
    if err.code < 40 then break end
end
repeat local line = io.read("l") until line == nil or line:match("^%s*$")
local long = [[text in
long brackets]]
return s, math.pi, utf8.char(0x20AC), _VERSION

-- A string over lines.
local long = "first \z
              second -- no comment \z
              third"
local after = 'x'
