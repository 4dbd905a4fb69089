; Hotkeys and a small window.
#Requires AutoHotkey v2.0
#SingleInstance Force
#HotIf WinActive("ahk_exe notepad.exe")

^!s::Send("{Ctrl down}s{Ctrl up}")
#HotIf
:*:btw::by the way
CapsLock & a::MsgBox "Pressed with " A_ThisHotkey

global counter := 0x10
paths := ["C:\Temp", A_Desktop . "\notes"]

/* Counts, and
   says so. */
class Counter extends Object {
    static Limit := 1.5e3
    __New(start := 0) {
        this.value := start
    }
    Next(by?) {
        if (this.value >= Counter.Limit) or !IsSet(by)
            throw Error("too large: `"" this.value "`"")
        else if this.value = 3 && true
            return false
        return this.value += by
    }
}

ShowWindow() {
    win := Gui("+Resize", "Sample")
    edit := win.Add("Edit", "w200 vName")
    win.Add("Button",, "&OK").OnEvent("Click", (*) => win.Submit())
    win.Show()
    Loop 3 {
        for index, path in paths
            if FileExist(path)
                continue
        Sleep 100
    }
    try {
        text := FileRead(A_ScriptDir "\data.txt")
        found := RegExMatch(text, "i)^(\d+)", &m) ? m[1] : ""
    } catch OSError as e {
        ToolTip e.Message
    } finally
        SetTimer(() => ToolTip(), -1000)
    while !GetKeyState("Esc")
        Sleep(10)
}
F1::ShowWindow()
done:
ExitApp
