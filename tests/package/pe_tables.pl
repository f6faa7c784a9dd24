# pe_tables.pl FILE: prints what a linked 64-bit Windows file tells its loader, read from its own tables,
# one line each: "protection NAME", "import LIBRARY NAME" or "import LIBRARY #ORDINAL", "export ORDINAL
# NAME" (without the name if it has none), "base ADDRESS", "searches FLAGS" (DependentLoadFlags).
use strict;
use warnings;

local $/;
open my $file, '<:raw', $ARGV[0] or die "$ARGV[0]: $!\n";
my $image = <$file>;

sub number { # FORMAT OFFSET: v 16 bits, V 32, Q 64
  my ($format, $offset) = @_;
  my $size = { v => 2, V => 4, Q => 8 }->{$format};
  die "$ARGV[0] ends at $offset\n" if $offset + $size > length $image;
  return unpack $format, substr $image, $offset, $size;
}

my $header = number('V', 0x3C);
die "$ARGV[0] is no file for 64-bit Windows\n"
  unless substr($image, $header, 4) eq "PE\0\0" && number('v', $header + 24) == 0x20B;
my $optional = $header + 24;
my @sections = map {
  my $row = $optional + number('v', $header + 20) + 40 * $_;
  { address => number('V', $row + 12), size => number('V', $row + 16), place => number('V', $row + 20) }
} 0 .. number('v', $header + 6) - 1;

sub place { # ADDRESS relative to the image: its offset in the file
  my ($address) = @_;
  for (@sections) {
    return $address - $_->{address} + $_->{place}
      if $address >= $_->{address} && $address < $_->{address} + $_->{size};
  }
  die sprintf "%s has nothing at address %x\n", $ARGV[0], $address;
}
sub text { my $place = place($_[0]); return unpack 'Z*', substr $image, $place, 512; }
sub directory { return number('V', $optional + 112 + 8 * $_[0]); }

printf "base %x\n", number('Q', $optional + 24);
my $flags = number('v', $optional + 70);
my %protections = (HIGH_ENTROPY_VA => 0x20, DYNAMIC_BASE => 0x40, NX_COMPAT => 0x100, GUARD_CF => 0x4000);
for (sort keys %protections) { print "protection $_\n" if $flags & $protections{$_}; }

if (my $table = directory(1)) {
  for (my $row = place($table); number('V', $row + 12); $row += 20) {
    my $library = text(number('V', $row + 12));
    my $names = number('V', $row) || number('V', $row + 16);
    for (my $slot = place($names); my $entry = number('Q', $slot); $slot += 8) {
      print "import $library ", $entry >> 63 ? '#' . ($entry & 0xFFFF) : text($entry + 2), "\n";
    }
  }
}

if (my $table = directory(0)) {
  my $row = place($table);
  my ($base, $count, $named) = map { number('V', $row + $_) } 16, 20, 24;
  my ($functions, $names, $ordinals) = map { number('V', $row + $_) } 28, 32, 36;
  my %name = map {
    (number('v', place($ordinals) + 2 * $_) => text(number('V', place($names) + 4 * $_)))
  } 0 .. $named - 1;
  for (0 .. $count - 1) {
    next unless number('V', place($functions) + 4 * $_);
    print join(' ', 'export', $base + $_, $name{$_} // ()), "\n";
  }
}

if (my $table = directory(10)) { printf "searches %04x\n", number('v', place($table) + 0x4E); }
