# It's a "remark
/* don't */
{ pkgs ? import <nixpkgs> { } }:
let
  text = "it's ${toString (1 + 2)} # here \${no}"; # the 'end
  script = ''
    echo "don't" ''${raw} ${pkgs.hello}/bin ''' x
  '';
in rec {
  name = "a-${text + "b"}"; url = https://example.org/#a;
}
