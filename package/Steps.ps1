# Functions that the install and uninstall scripts share; both load this file from their own folder.

$files = @('WiFiAdapterProvider.dll', 'wmihost.exe', 'wifi_adapter_provider.mof', 'uninstall.mof',
    'Install-WiFiAdapterProvider.ps1', 'Uninstall-WiFiAdapterProvider.ps1', 'Steps.ps1',
    'LICENSE.txt', 'THIRD-PARTY-NOTICES.txt', 'docs')
$classes = 'HKLM:\SOFTWARE\Classes'
$class = '{3B14BAD6-C364-4576-8271-39B5850ABDA8}'
$keys = @("CLSID\$class", 'WiFiAdapterProvider.Instance', 'WiFiAdapterProvider.Instance.1',
    'TypeLib\{A9A3ACD3-02FF-4C28-8353-F0FDFC66E01A}') | ForEach-Object { "$classes\$_" }
$restartNeeded = $false

function Assert-CanRun {
    if (-not [Environment]::Is64BitProcess) {
        throw 'The provider is a 64-bit module: run this script in the 64-bit PowerShell.'
    }
    $user = [Security.Principal.WindowsPrincipal] [Security.Principal.WindowsIdentity]::GetCurrent()
    if (-not $user.IsInRole([Security.Principal.WindowsBuiltInRole]::Administrator)) {
        throw 'Administrator rights are needed: start PowerShell with "Run as administrator".'
    }
    $entries = 'HKLM:\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\{*}'
    $product = Get-ItemProperty $entries | Where-Object { $_.PSObject.Properties['DisplayName'] -and
        $_.DisplayName -eq 'WiFi Adapter Provider' }
    if ($product) { throw 'It was installed by the installer: update or remove it with msiexec.' }
}

function Invoke-Tool([string] $Tool, [string[]] $Arguments) {
    $process = Start-Process -FilePath (Join-Path $env:SystemRoot "System32\$Tool") -Wait -PassThru `
        -NoNewWindow -ArgumentList ($Arguments -replace '^(.* .*)$', '"$1"')
    if ($process.ExitCode -ne 0) { throw "$Tool $Arguments failed with exit code $($process.ExitCode)." }
}

# The file of the registered module; empty if no module is registered.
function Get-RegisteredModule {
    $key = Get-Item "$classes\CLSID\$class\InprocServer32" -ErrorAction SilentlyContinue
    if ($key) { $key.GetValue('') }
}

# Works without the module, which cannot be loaded after the maker's libraries have been removed.
function Remove-Registration {
    $keys | Where-Object { Test-Path $_ } | Remove-Item -Recurse -Force
}

# Deletes a file or folder; files that a process has open are deleted at the next restart.
function Remove-NowOrAtRestart([string] $Path) {
    Get-ChildItem -Recurse -File -Force $Path | ForEach-Object {
        try { Remove-Item -Force $_.FullName } catch {
            $script:restartNeeded = $true
            Add-Type -Namespace Native -Name Files -MemberDefinition @'
[DllImport("kernel32.dll", CharSet = CharSet.Unicode, SetLastError = true)]
public static extern bool MoveFileEx(string from, string to, int flags);
'@
            [void] [Native.Files]::MoveFileEx($_.FullName, $null, 4)
            [void] [Native.Files]::MoveFileEx($_.DirectoryName, $null, 4)
        }
    }
    if (-not (Get-ChildItem -Recurse -File -Force $Path)) { Remove-Item -Recurse -Force $Path }
}

# Moves the provider's files from a folder into a new subfolder, which works even while they are in use.
# Returns the subfolder.
function Move-Aside([string] $Folder) {
    $aside = Join-Path $Folder "replaced-$([guid]::NewGuid().ToString('N'))"
    New-Item -ItemType Directory $aside | Out-Null
    $files | ForEach-Object { Join-Path $Folder $_ } | Where-Object { Test-Path $_ } |
        Move-Item -Destination $aside
    $aside
}

function Get-ProviderClass {
    @(Get-CimClass -Namespace root\cimv2 -ClassName 'WiFi_*' -ErrorAction SilentlyContinue)
}
