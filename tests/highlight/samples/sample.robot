*** Settings ***
Library    Collections    # It's a "remark
*** Test Cases ***
Walk That Doesn't End
    [Tags]    slow
    ${n} =    Set Variable    12
    Log    it's a # sign and "no string
    # the end's
