#Requires -Version 7.0
using namespace System.IO

<#
.SYNOPSIS
    Copies files; function and "string" are comment here.
#>
[CmdletBinding(SupportsShouldProcess)]
param(
    [Parameter(Mandatory = $true, Position = 0)]
    [ValidateNotNullOrEmpty()] [string[]] $Path,
    [ValidateSet("Low", "High")] [string] $Level = "a `"quoted`" level",
    [switch] $Force
)

enum State { Idle = 0; Busy = 0xFF }

class Basket {
    hidden [int] $Count = -1
    static [double] $Limit = 1.5e3
    Basket([int] $count) { $this.Count = $count }
}

function Copy-Thing {
    begin { $ErrorActionPreference = 'Stop' } # at once
    process {
        foreach ($item in Get-ChildItem -Path $Path -Recurse | Where-Object { $_.Length -gt 1KB -and -not $_.PSIsContainer }) {
            if ($item.Name -match '^\w+\.txt$') { Write-Output "found ${item} at $($item.FullName)" }
            elseif ($null -eq $item -or $env:DEBUG) { continue }
            else { Remove-Item -LiteralPath $item.FullName -Force:$Force }
        }
    }
    end { return @{ Count = 3; Names = @('a', 'b') -join ',' } }
}

try {
    switch ($Level) { "Low" { Copy-Thing @PSBoundParameters } default { throw "unknown" } }
} catch [IOException] {
    Write-Error $_.Exception.Message
} finally { <# one #> $global:done = $true <# two #> }
