<#
.SYNOPSIS
Installs the WiFi Adapter Provider from the unpacked package: files, registration, management classes.
.DESCRIPTION
Run it in a 64-bit Windows PowerShell started as administrator. It can be run again to repair or to
update. If a step fails, the previous state is restored. It exits with 3010 when a file in use is
replaced at the next restart. The installer (MSI) does the same and is the better choice for many machines.
.PARAMETER Destination
The folder for the provider's files; ordinary users must not be able to write there.
.EXAMPLE
.\Install-WiFiAdapterProvider.ps1 -WhatIf
#>
[CmdletBinding(SupportsShouldProcess)]
param([string] $Destination = (Join-Path $env:ProgramFiles 'WiFiAdapterProvider'))

Set-StrictMode -Version Latest
$ErrorActionPreference = 'Stop'
. (Join-Path $PSScriptRoot 'Steps.ps1')
Assert-CanRun
$Destination = [IO.Path]::GetFullPath($Destination).TrimEnd('\')

foreach ($file in $files) {
    if (-not (Test-Path (Join-Path $PSScriptRoot $file))) {
        throw "The package is incomplete: $file is missing beside this script."
    }
}

# A user who may write there could put code into the service. The folder will inherit rights, so those of
# its nearest existing parent are checked. Allowed: the system, administrators, the creator, the system's
# installer.
$existing = $Destination
while (-not (Test-Path $existing)) { $existing = Split-Path $existing }
$trusted = '^S-1-5-(18|32-544|80-956008885-.*)$|^S-1-3-0$'
$writing = 0x500D0156
$rules = (Get-Acl $existing).GetAccessRules($true, $true, [Security.Principal.SecurityIdentifier])
foreach ($rule in $rules) {
    if ($rule.AccessControlType -eq 'Allow' -and $rule.IdentityReference.Value -notmatch $trusted -and
        ([int] $rule.FileSystemRights -band $writing)) {
        throw "$existing can be written by $($rule.IdentityReference): choose a folder of administrators."
    }
}

# The adapter's driver installs the maker's libraries; without them the module cannot be loaded.
foreach ($library in 'QuarnApi.dll', 'TolvaApi.dll') {
    $found = @((Join-Path $Destination $library), (Join-Path $env:SystemRoot "System32\$library")) |
        Where-Object { Test-Path $_ }
    if (-not $found) {
        throw "$library is neither in $Destination nor in System32: install the adapter's driver package."
    }
    $simulated = $found | Where-Object { (Get-Item $_).VersionInfo.ProductName -like '*SIMULATED*' }
    if ($simulated) { throw "$simulated is a simulated library: remove it." }
}

if (-not $PSCmdlet.ShouldProcess($Destination, 'Copy files, register the module, compile the schema')) { return }

$inPlace = $PSScriptRoot.TrimEnd('\') -eq $Destination
$before = Get-RegisteredModule
$module = Join-Path $Destination 'WiFiAdapterProvider.dll'
$aside = $null
try {
    if (-not $inPlace) {
        New-Item -ItemType Directory -Force $Destination | Out-Null
        $aside = Move-Aside $Destination
        $files | ForEach-Object { Copy-Item -Recurse (Join-Path $PSScriptRoot $_) $Destination }
    }
    Invoke-Tool 'regsvr32.exe' '/s', $module
    $schema = Join-Path $Destination 'wifi_adapter_provider.mof'
    Invoke-Tool 'wbem\mofcomp.exe' $schema
    $count = (Get-ProviderClass).Count
    $declared = @(Select-String -LiteralPath $schema -Pattern '^class WiFi_').Count
    if ((Get-RegisteredModule) -ne $module -or $count -ne $declared) {
        throw "The check failed: registered is '$(Get-RegisteredModule)', with $count classes of $declared."
    }
} catch {
    Write-Warning "Putting back what was there: $_"
    if (-not $before) {
        try { Invoke-Tool 'wbem\mofcomp.exe' (Join-Path $PSScriptRoot 'uninstall.mof') } catch { Write-Warning $_ }
        Remove-Registration
    }
    if ($aside) {
        Remove-NowOrAtRestart (Move-Aside $Destination)
        Get-ChildItem -Force $aside | Move-Item -Destination $Destination
        Remove-Item -Recurse $aside
        if (-not (Get-ChildItem -Force $Destination)) { Remove-Item $Destination }
    }
    if ($before) {
        $schema = Join-Path (Split-Path $before) 'wifi_adapter_provider.mof'
        Invoke-Tool 'regsvr32.exe' '/s', $before
        Invoke-Tool 'wbem\mofcomp.exe' $schema
    }
    throw
}
if ($aside) { Remove-NowOrAtRestart $aside }
Write-Output 'Installed. Try: Get-CimInstance -ClassName WiFi_NetworkAdapter'
if ($restartNeeded) {
    Write-Output 'Until the next restart the service may still use the replaced file.'
    exit 3010
}
