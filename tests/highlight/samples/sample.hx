// It's a "remark
/* don't
   open */
class Main {
  static function main() {
    var a = 'it ${1 + 2} \'x\' // here'; // the "end
    var r = ~/a"b\/c/i;
    trace("don't
end", 0x1F / 2);
  }
}
