// It's a "remark
# don't
/* stop */
local text = "it's // here"; // the 'end
{ name: 'a "b" \'c\'', raw: @"x\", size+: 12,
  long: |||
    two "lines # it's
  |||,
  n: std.length(text) }
