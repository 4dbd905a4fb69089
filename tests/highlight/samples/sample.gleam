// It's a "remark
import gleam/io
pub fn main() {
  let text = "don't // \"open\"
on two lines"
  io.println(text <> "!") // the 'end
  0x1F + 12
}
