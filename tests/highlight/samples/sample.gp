# It's a "remark
set title "it's # here" font 'Sans,12' # the "end
set label 'don''t'
$data << EOD
1 2 "not read
EOD
plot sin(x)/0x1F with lines title "a \"b\"", \
     'file.dat' using 1:2
