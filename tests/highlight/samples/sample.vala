// It's a "remark
/* don't
   open */
int main (string[] args) {
    var text = """raw "it's" // here""";
    stdout.printf (@"a $(args.length + 1) \"b\""); // the 'end
    char c = '\'';
    return 0x1F;
}
