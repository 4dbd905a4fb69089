# It's a "remark
class Walk
  getter name : String
  def text(n = 0x1F)
    c = '\''
    s = "it's #{n + "x".size} # here" # the 'end
    list = %w(a "b c'd)
    puts <<-TEXT
      don't #{s}
      TEXT
    n / 2 if s =~ /a"b/
  end
end
