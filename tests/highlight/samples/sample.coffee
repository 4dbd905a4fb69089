# It's a "remark
###
A block's "text
###
walk = (n) ->
  text = "it's #{n + "x".length} # here" # the 'end
  re = /a"b#c/g
  raw = 'don\'t #{no}'
  long = """
    two "lines #{n}
  """
  heregex = ///
    a "b # it's
  ///
  n / 2 unless n is 0x1F
