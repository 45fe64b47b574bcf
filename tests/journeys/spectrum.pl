#!/usr/bin/perl
# What the journeys hold the program against: where a pixel lies, worked out once more and apart from the program.
# VIEW is mode,offset,width,lines,columns,flip as the window shows them; the result goes to standard output.
#
#   spectrum.pl picture FILE VIEW                          the view as a PBM; a set bit is black
#   spectrum.pl set FILE VIEW X,Y,BIT...                   FILE with pixels changed
#   spectrum.pl move FILE VIEW X,Y,W,H TARGET VIEW X,Y     TARGET with the block of FILE put down at X,Y
use strict;
use warnings;

sub bytes_of { local $/; open my $f, '<:raw', $_[0] or die "$_[0]: $!"; return <$f>; }

sub view { my %v; @v{qw(mode offset width lines columns flip)} = split /,/, $_[0]; return \%v; }

# Byte and bit of a pixel, bit 7 being the leftmost of eight.
sub place {
    my ($v, $x, $y) = @_;
    $y = $v->{lines} - 1 - $y if $v->{flip};
    my ($row, $column) = ($v->{width} / 8, int($x / $v->{width}));
    my $b = int($x % $v->{width} / 8);
    my $at = $v->{mode} == 1 ? 2048 * int($y / 64) + 32 * int($y % 64 / 8) + 256 * ($y % 8) + $b
           : $v->{mode} == 2 ? $row * ($y - $y % 8) + 8 * $b + $y % 8
           : $v->{mode} == 3 ? 2 * $row * ($v->{lines} * $column + $y) + $b
           : $v->{mode} == 4 ? 2 * $row * ($v->{lines} * $column + $y) + 2 * $b
           :                   $row * ($v->{lines} * $column + $y) + $b;
    return ($v->{offset} + $at, 7 - $x % 8);
}

sub get {
    my ($memory, $v, $x, $y) = @_;
    my ($at, $bit) = place($v, $x, $y);
    return $at < length $$memory ? ord(substr $$memory, $at, 1) >> $bit & 1 : 0;
}

sub put {
    my ($memory, $v, $x, $y, $value) = @_;
    my ($at, $bit) = place($v, $x, $y);
    my $byte = ord substr $$memory, $at, 1;
    substr($$memory, $at, 1) = chr($value ? $byte | 1 << $bit : $byte & ~(1 << $bit));
}

binmode STDOUT;
my ($command, @words) = @ARGV;
my ($memory, $v) = (bytes_of(shift @words), view(shift @words));
if ($command eq 'picture') {
    my $width = $v->{width} * $v->{columns};
    print "P4\n$width $v->{lines}\n";
    for my $y (0 .. $v->{lines} - 1) {
        print pack 'B*', join '', map { get(\$memory, $v, $_, $y) } 0 .. $width - 1;
    }
} elsif ($command eq 'set') {
    put(\$memory, $v, split /,/) for @words;
    print $memory;
} elsif ($command eq 'move') {
    my ($x, $y, $w, $h) = split /,/, $words[0];
    my ($target, $to) = (bytes_of($words[1]), view($words[2]));
    my ($left, $top) = split /,/, $words[3];
    for my $j (0 .. $h - 1) {
        put(\$target, $to, $left + $_, $top + $j, get(\$memory, $v, $x + $_, $y + $j)) for 0 .. $w - 1;
    }
    print $target;
}
