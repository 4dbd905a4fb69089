-- Renames the chosen files.
# A comment of another kind.
use AppleScript version "2.4"
use scripting additions

property prefix : "New "
property limit : 1.5E+3

(* A block comment
   of two lines. *)
on rename(theFile, newName)
	tell application "Finder"
		try
			set name of theFile to newName & ".txt"
		on error errText number errNumber
			display dialog "Said \"" & errText & "\"" buttons {"OK"} default button 1 with icon stop
			return false
		end try
	end tell
	return true
end rename

to countUp from a to b
	set total to 0
	repeat with i from a to b by 2
		if i is greater than 10 and not (i mod 3 = 0) then
			exit repeat
		else if i is missing value then
			set total to total + i
		end if
	end repeat
	return total as text
end countUp

script Helper
	property |odd name| : null
	on run
		return current date
	end run
end script

set chosen to choose file with prompt "Which?" with multiple selections allowed
repeat with f in chosen
	my rename(f, prefix & ((count of chosen) as string))
end repeat
set theList to {1, 2, "three", {a:1, b:pi}}
set x to every item of theList whose class is integer
ignoring case
	if "A" = "a" then beep 2
end ignoring
tell application "System Events" to keystroke "v" using {command down}
do shell script "ls -l " & quoted form of POSIX path of (path to desktop)
