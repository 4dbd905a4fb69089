// It's a "remark
/* don't */
param name string = 'it\'s // ${toUpper('x')} here' // the "end
var text = '''
raw 'text' // here
'''
resource a 'Microsoft.Web/sites@2022-03-01' = if (true) {
  name: '${name}-${12 + length('b')}'
}
