<#
.SYNOPSIS
Removes the WiFi Adapter Provider: its management classes, its registration and its files.
.DESCRIPTION
Run it in a Windows PowerShell started as administrator. Steps that are already done are passed
over. The adapter maker's libraries are not touched.
.PARAMETER Destination
The folder that the provider was installed to.
#>
[CmdletBinding(SupportsShouldProcess)]
param(
    [string] $Destination = (Join-Path $env:ProgramFiles 'WiFiAdapterProvider')
)

Set-StrictMode -Version Latest
$ErrorActionPreference = 'Stop'

$files = @('WiFiAdapterProvider.dll', 'wmihost.exe', 'wifi_adapter_provider.mof', 'uninstall.mof',
    'Uninstall-WiFiAdapterProvider.ps1', 'LICENSE.txt', 'docs')

function Invoke-Tool([string] $Tool, [string[]] $Arguments) {
    $process = Start-Process -FilePath (Join-Path $env:SystemRoot $Tool) -ArgumentList $Arguments `
        -Wait -PassThru -NoNewWindow
    if ($process.ExitCode -ne 0) {
        throw "$Tool $Arguments failed with exit code $($process.ExitCode)."
    }
}

$identity = [Security.Principal.WindowsPrincipal] [Security.Principal.WindowsIdentity]::GetCurrent()
$administrator = $identity.IsInRole([Security.Principal.WindowsBuiltInRole]::Administrator)
if (-not $administrator -and -not $WhatIfPreference) {
    throw 'Administrator rights are needed: start PowerShell with "Run as administrator".'
}

$mof = Join-Path $Destination 'uninstall.mof'
if ((Test-Path $mof) -and
    $PSCmdlet.ShouldProcess('root\cimv2', 'Remove the WiFi_* classes and the provider registration')) {
    Invoke-Tool 'System32\wbem\mofcomp.exe' @("`"$mof`"")
}
$module = Join-Path $Destination 'WiFiAdapterProvider.dll'
if ((Test-Path $module) -and $PSCmdlet.ShouldProcess($module, 'Unregister the COM server')) {
    Invoke-Tool 'System32\regsvr32.exe' @('/s', '/u', "`"$module`"")
}
if ((Test-Path $Destination) -and $PSCmdlet.ShouldProcess($Destination, 'Remove the provider''s files')) {
    # The service may hold the module for some minutes after its last request.
    foreach ($file in $files) {
        $path = Join-Path $Destination $file
        if (Test-Path $path) { Remove-Item -Force -Recurse $path }
    }
    if (-not (Get-ChildItem -Force $Destination)) { Remove-Item -Force $Destination }
}
if (-not $WhatIfPreference) { Write-Output 'Uninstalled.' }
