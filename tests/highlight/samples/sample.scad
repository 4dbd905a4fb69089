// It's a "remark
/* don't
   open */
module walk(n = 12) {
  translate([0, 0, n / 2]) cube(3); // the 'end
  text("it's // \"here");
}
