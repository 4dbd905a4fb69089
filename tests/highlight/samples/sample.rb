#!/usr/bin/env ruby
# frozen_string_literal: true
require 'set'
require_relative "lib/shop"

=begin
A block comment: class, def and "string"
are comment here.
=end
module Shop
  LIMIT = 0xFF - -12

  class Basket < Struct.new(:name, :items)
    include Comparable
    attr_reader :total, :count
    @@open = 0

    def initialize(name = "a \"quoted\" name \\", *items, tax: 1.5e-2, **rest, &block)
      super(name, items)
      @total = items.sum { |item| item.price * (1 + tax) } # with tax
      @@open += 1
      yield self if block_given?
    end

    def <=>(other) = total <=> other.total
    def empty? = items.nil? || items.empty?

    private

    def read(path)
      return unless File.exist?(path)
      File.foreach(path) do |line|
        next if line =~ /^\s*$/ or line.start_with?("//")
        case line.split
        in [String => first, *] then puts "first: #{first}"
        else redo
        end
      end
    rescue IOError, SystemCallError => e
      warn "#{$PROGRAM_NAME}: #{e.message}"
      raise ArgumentError, 'unreadable'
    ensure
      $stdout.flush
    end
  end
end

puts [1, 2, 3].map { _1 ** 2 }.inspect, %w[a b], nil, true, __FILE__ while false

# A pattern that begins with a blank, a character, here-documents that begin in a field.
assert_text([
  /     1\| module "Foo/,
])
dir == '/' ? dir : dir.chomp(?/)
text = "#{<<-"one;"}\n#{<<-"two;".chomp}"
  first #{dir}
one;
  second "
two;
puts text / 2
