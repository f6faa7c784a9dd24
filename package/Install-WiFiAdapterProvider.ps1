<#
.SYNOPSIS
Installs the WiFi Adapter Provider: its files, its registration and its management classes.
.DESCRIPTION
Run it from the unpacked package, in a Windows PowerShell started as administrator. It can be run
again at any time: files are replaced, registration and classes are written anew.
.PARAMETER Destination
The folder for the provider's files.
.EXAMPLE
.\Install-WiFiAdapterProvider.ps1 -WhatIf
#>
[CmdletBinding(SupportsShouldProcess)]
param(
    [string] $Destination = (Join-Path $env:ProgramFiles 'WiFiAdapterProvider')
)

Set-StrictMode -Version Latest
$ErrorActionPreference = 'Stop'

$files = @('WiFiAdapterProvider.dll', 'wmihost.exe', 'wifi_adapter_provider.mof', 'uninstall.mof',
    'Uninstall-WiFiAdapterProvider.ps1', 'LICENSE.txt', 'docs')
$libraries = @('QuarnApi.dll', 'TolvaApi.dll')

function Invoke-Tool([string] $Tool, [string[]] $Arguments) {
    $process = Start-Process -FilePath (Join-Path $env:SystemRoot $Tool) -ArgumentList $Arguments `
        -Wait -PassThru -NoNewWindow
    if ($process.ExitCode -ne 0) {
        throw "$Tool $Arguments failed with exit code $($process.ExitCode)."
    }
}

if (-not [Environment]::Is64BitProcess) {
    throw 'The provider is a 64-bit module: run this script in the 64-bit PowerShell.'
}
foreach ($file in $files) {
    if (-not (Test-Path (Join-Path $PSScriptRoot $file))) {
        throw "The package is incomplete: $file is missing beside this script."
    }
}

$identity = [Security.Principal.WindowsPrincipal] [Security.Principal.WindowsIdentity]::GetCurrent()
$administrator = $identity.IsInRole([Security.Principal.WindowsBuiltInRole]::Administrator)
if (-not $administrator -and -not $WhatIfPreference) {
    throw 'Administrator rights are needed: start PowerShell with "Run as administrator".'
}

# The maker's libraries come with the adapter's driver; without them the module cannot be loaded.
foreach ($library in $libraries) {
    $places = @((Join-Path $Destination $library), (Join-Path $env:SystemRoot "System32\$library"))
    if (-not ($places | Where-Object { Test-Path $_ })) {
        $message = "$library was found neither in $Destination nor in System32. " +
            'Install the adapter''s driver package first.'
        if ($WhatIfPreference) { Write-Warning $message } else { throw $message }
    }
}

if ($PSCmdlet.ShouldProcess($Destination, 'Copy the provider''s files')) {
    New-Item -ItemType Directory -Force -Path $Destination | Out-Null
    foreach ($file in $files) {
        Copy-Item -Force -Recurse -Path (Join-Path $PSScriptRoot $file) -Destination $Destination
    }
}
$module = Join-Path $Destination 'WiFiAdapterProvider.dll'
if ($PSCmdlet.ShouldProcess($module, 'Register the COM server')) {
    Invoke-Tool 'System32\regsvr32.exe' @('/s', "`"$module`"")
}
$mof = Join-Path $Destination 'wifi_adapter_provider.mof'
if ($PSCmdlet.ShouldProcess('root\cimv2', 'Add the 19 WiFi_* classes and the provider registration')) {
    Invoke-Tool 'System32\wbem\mofcomp.exe' @("`"$mof`"")
}
if (-not $WhatIfPreference) {
    Write-Output "Installed. Try: Get-CimInstance -ClassName WiFi_NetworkAdapter"
}
