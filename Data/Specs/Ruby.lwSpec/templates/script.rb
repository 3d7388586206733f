#!/usr/bin/env ruby
# frozen_string_literal: true

def main
end

main if $PROGRAM_NAME == __FILE__
