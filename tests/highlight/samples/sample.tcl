#!/usr/bin/env tclsh
# A small window that counts.
package require Tk 8.6
namespace eval counter {
    variable value 0
    namespace export up
}

proc counter::up {{step 1} args} {
    variable value
    if {$step < 0 || ![string is integer -strict $step]} {
        error "bad step \"$step\""
    } elseif {$value >= 0xFF} {
        return -code break $value
    }
    incr value $step
    foreach {key val} $args {
        dict set ::options $key $val
    }
    return [expr {$value * 1.5e0 + [llength $args]}]
}

oo::class create Stack {
    variable items
    constructor {} { set items {} }
    method push {x} { lappend items $x }
}

if 0 {
    puts "left out"
};
button .b -text "Up" -command {counter::up 2}
label .l -textvariable counter::value
grid .b .l -sticky ew \
    -padx 4
bind . <Escape> exit
set s [Stack new]
$s push {*}[list 1 2 3]
switch -glob -- $tcl_platform(os) {
    Win*    { puts stderr ${counter::value} }
    default { after 1000 [list puts done] } ;# later
}
regexp {^(\w+)=(.*)$} "a=b" -> name value
catch {open nofile.txt r} message
