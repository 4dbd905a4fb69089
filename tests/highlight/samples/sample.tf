# A bucket, its policy and a few machines.
terraform {
  required_version = ">= 1.6"
  required_providers {
    aws = { source = "hashicorp/aws", version = "~> 5.0" }
  }
  backend "s3" {
    bucket = "state"
  }
}

variable "names" {
  type        = list(string)
  description = "Names of \"machines\""
  default     = ["a", "b"]
  validation {
    condition     = length(var.names) > 0 && !contains(var.names, "")
    error_message = "At least one name."
  }
}

/* Values that
   are used twice. */
locals {
  tags  = merge({ owner = "ops" }, { for n in var.names : n => upper(n) if n != null })
  size  = var.large ? 0x10 : 1.5e1
  first = try(var.names[0], "none")
}

provider "aws" {
  region = "eu-central-1"
}

data "aws_ami" "linux" {
  most_recent = true
}

resource "aws_instance" "web" {
  for_each      = toset(var.names)
  ami           = data.aws_ami.linux.id
  instance_type = "t3.micro"
  tags          = local.tags
  user_data     = <<-EOT
    echo ${each.key}
  EOT

  dynamic "ebs_block_device" {
    for_each = [10, 20]
    content {
      volume_size = ebs_block_device.value
    }
  }
  lifecycle {
    create_before_destroy = true
    ignore_changes        = [tags]
  }
}

output "ids" {
  value     = aws_instance.web[*].id # all of them
  sensitive = false
}
