#!/usr/bin/perl
use strict;
use warnings qw(all);
package Shop::Order;

=pod

Documentation: sub, my and "string" are comment here.

=cut

our $VERSION = '1.02';
my %price = (apple => 0.5, pear => 1.5e-2, hex => 0x1F);
my @lines = map { $_ * 2 } grep { defined && $_ > -1 } (1 .. 10);

sub new {
    my ($class, %args) = @_; # the usual
    my $self = bless { name => "a \"quoted\" name \\", %args }, $class;
    return $self;
}

sub read_file {
    my $self = shift;
    open(my $fh, '<', $_[0]) or die "cannot open $_[0]: $!";
    while (my $line = <$fh>) {
        chomp $line;
        next unless $line =~ m/^(\w+)\s*=\s*(.*)$/x;
        last if $1 eq 'end' or $2 ne "";
        $self->{$1} = $2;
        $line =~ s/foo/bar/g;
        push @{$self->{lines}}, sprintf("%-10s|%5.2f", $1, length $2);
    }
    close $fh;
    local $/ = undef;
    print STDERR "read: ", scalar keys %$self, "\n" if $ENV{DEBUG};
    foreach my $key (sort { $a cmp $b } keys %{$self}) { delete $self->{$key} unless exists $price{$key} }
    return wantarray ? @lines : \@lines;
}

1;
__END__
