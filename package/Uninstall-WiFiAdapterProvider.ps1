<#
.SYNOPSIS
Removes the WiFi Adapter Provider: its management classes, its registration and its files.
.DESCRIPTION
Run it in a 64-bit Windows PowerShell started as administrator. It needs neither the module nor the
adapter maker's libraries, which it does not touch. Steps that are already done are skipped. It
exits with 3010 when a file in use is deleted at the next restart.
.PARAMETER Destination
The folder to which the provider was installed; by default it is found through the registration.
#>
[CmdletBinding(SupportsShouldProcess)]
param([string] $Destination)

Set-StrictMode -Version Latest
$ErrorActionPreference = 'Stop'
. (Join-Path $PSScriptRoot 'Steps.ps1')
Assert-CanRun
if (-not $Destination) {
    $module = Get-RegisteredModule
    $Destination = if ($module) { Split-Path $module } else { $PSScriptRoot }
}
$Destination = [IO.Path]::GetFullPath($Destination).TrimEnd('\')

if (-not $PSCmdlet.ShouldProcess($Destination, 'Remove classes, registration and files')) { return }

Invoke-Tool 'wbem\mofcomp.exe' (Join-Path $PSScriptRoot 'uninstall.mof')
Remove-Registration
if (Test-Path (Join-Path $Destination 'WiFiAdapterProvider.dll')) {
    Remove-NowOrAtRestart (Move-Aside $Destination)
    if (-not (Get-ChildItem -Force $Destination)) { Remove-Item $Destination }
}

$left = @(Get-ProviderClass | ForEach-Object CimClassName) + @($keys | Where-Object { Test-Path $_ })
if ($left) { throw "The check failed, these are left: $left" }
Write-Output 'Uninstalled.'
if ($restartNeeded) {
    Write-Output 'A file in use goes at the next restart.'
    exit 3010
}
