#!/usr/bin/env raku
# It's a "remark
=begin pod
Don't open "this.
=end pod
sub MAIN(Str $name = 'it"s') {
    my @list = <a b 'c>;
    say "hello {$name ~ "x"} # here"; # the 'end
    say q{a {nested} "one}; say Q[raw \ text];
    if $name ~~ / 'a' "b" / { return 0x1F }
#`( a block
comment's ) say 1;
}
